#include <chrono>
#include <numeric>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/nfc/FaultOf.h"
#include "drivers/nfc/HexBytes.h"
#include "drivers/nfc/MailboxExchange.h"
#include "drivers/nfc/TagCommands.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using ::testing::HasSubstr;
using testing::hex;

constexpr std::uint8_t freeMailbox = mailboxBits::enabled;
constexpr std::uint8_t holdsRequest = 0x85;  // enabled, holds the reader's message
constexpr std::uint8_t holdsAnswer = 0x43;   // enabled, holds the module's message
constexpr std::uint8_t mailboxOff = 0x00;

/// An exchange with a tag that the test plays, at times that it sets.
class MailboxExchanges : public ::testing::Test {
 protected:
  using Clock = MailboxExchange::Clock;

  void begin(const Bytes& frame) { exchange.emplace(frame, MailboxTimings{}, now); }

  void expectRequest(const AirRequest& next) { EXPECT_EQ(exchange->request(), next); }

  void answer(const Bytes& data = {}) { exchange->answered(data, now); }

  /// The next request is a look at the mailbox, which shows `control`.
  void look(std::uint8_t control) {
    expectRequest(readControlRequest());
    answer({control});
  }

  /// The next request empties the mailbox, in two steps.
  void expectEmptying() {
    expectRequest(writeControlRequest(0x00));
    answer();
    expectRequest(writeControlRequest(0x01));
    answer();
  }

  void beginAndWrite(const Bytes& frame) {
    begin(frame);
    look(freeMailbox);
    expectRequest(writeMessageRequest(frame));
    answer();
  }

  Clock::time_point now = Clock::time_point(1h);
  std::optional<MailboxExchange> exchange;
  const Bytes request = hex("C0 04 00 04 00 01 60 DA");
  const Bytes reply = hex("C0 04 02 12 34 89 96");
};

TEST_F(MailboxExchanges, LookWriteLookMeasureAndFetch) {
  beginAndWrite(request);
  look(holdsRequest);
  look(freeMailbox);
  look(holdsAnswer);
  expectRequest(messageLengthRequest());
  answer({6});
  expectRequest(readMessageRequest(0, 7));
  EXPECT_FALSE(exchange->isDone());
  answer(reply);
  ASSERT_TRUE(exchange->isDone());
  EXPECT_EQ(exchange->answer(), reply);
}

TEST_F(MailboxExchanges, SwitchTheMailboxOnIfItIsNot) {
  begin(request);
  look(mailboxOff);
  expectRequest(writeControlRequest(0x01));
  answer();
  look(freeMailbox);
  expectRequest(writeMessageRequest(request));
}

TEST_F(MailboxExchanges, EndIfTheMailboxCannotBeSwitchedOn) {
  begin(request);
  look(mailboxOff);
  answer();
  const auto fault = faultOf([&] { look(mailboxOff); });
  EXPECT_EQ(fault.kind, NfcFaultKind::MailboxOff);
  EXPECT_THAT(fault.text, HasSubstr("does not allow its mailbox"));
}

TEST_F(MailboxExchanges, EndIfAMailboxThatWasOnIsOff) {
  exchange.emplace(request, MailboxTimings{}, now, true);
  EXPECT_EQ(faultOf([&] { look(mailboxOff); }).kind, NfcFaultKind::TagGone);
}

TEST_F(MailboxExchanges, EndIfTheTagRefusesTheControlRegister) {
  begin(request);
  const auto fault = faultOf([&] { exchange->refused("error 01", now); });
  EXPECT_EQ(fault.kind, NfcFaultKind::TagRefusal);
  EXPECT_THAT(fault.text, HasSubstr("error 01"));
}

TEST_F(MailboxExchanges, DiscardAnUnfetchedAnswer) {
  begin(request);
  look(holdsAnswer);
  expectEmptying();
  look(freeMailbox);
  expectRequest(writeMessageRequest(request));
}

TEST_F(MailboxExchanges, DiscardAgainWhatTheModulePutsMeanwhile) {
  begin(request);
  look(holdsAnswer);
  expectEmptying();
  look(holdsAnswer);
  expectEmptying();
  look(freeMailbox);
  expectRequest(writeMessageRequest(request));
}

TEST_F(MailboxExchanges, GiveTheModuleTimeToFetchAnEarlierRequest) {
  begin(request);
  look(holdsRequest);
  now += 100ms;
  look(holdsRequest);
  look(freeMailbox);
  expectRequest(writeMessageRequest(request));
}

TEST_F(MailboxExchanges, EmptyAMailboxThatIsStuck) {
  begin(request);
  look(holdsRequest);
  now += 150ms;
  look(holdsRequest);
  expectEmptying();
  look(freeMailbox);
  expectRequest(writeMessageRequest(request));
}

TEST_F(MailboxExchanges, EndIfAnEmptiedMailboxIsStillBusy) {
  begin(request);
  now += 150ms;
  look(holdsRequest);
  expectEmptying();
  look(holdsRequest);
  now += 150ms;
  const auto fault = faultOf([&] { look(holdsRequest); });
  EXPECT_EQ(fault.kind, NfcFaultKind::MailboxBusy);
  EXPECT_EQ(fault.text, "the module's mailbox is busy: it took no message for 300 ms");
}

TEST_F(MailboxExchanges, LookAgainIfTheTagRefusesTheMessage) {
  begin(request);
  look(freeMailbox);
  exchange->refused("busy", now);
  look(holdsAnswer);
  expectEmptying();
  look(freeMailbox);
  expectRequest(writeMessageRequest(request));
}

TEST_F(MailboxExchanges, EndIfTheTagKeepsRefusingTheMessage) {
  begin(request);
  look(freeMailbox);
  now += 150ms;
  exchange->refused("busy", now);
  expectEmptying();
  look(freeMailbox);
  now += 150ms;
  EXPECT_EQ(faultOf([&] { exchange->refused("busy", now); }).kind, NfcFaultKind::MailboxBusy);
}

TEST_F(MailboxExchanges, EndIfTheModuleDoesNotFetchTheRequest) {
  beginAndWrite(request);
  now += 499ms;
  look(holdsRequest);
  now += 1ms;
  const auto fault = faultOf([&] { look(holdsRequest); });
  EXPECT_EQ(fault.kind, NfcFaultKind::ModuleSilent);
  EXPECT_EQ(fault.text, "the module did not fetch the request from its mailbox within 500 ms");
}

TEST_F(MailboxExchanges, EndIfTheModuleFetchesTheRequestAndDoesNotAnswer) {
  beginAndWrite(request);
  look(freeMailbox);
  now += 500ms;
  const auto fault = faultOf([&] { look(freeMailbox); });
  EXPECT_EQ(fault.kind, NfcFaultKind::ModuleSilent);
  EXPECT_EQ(fault.text,
            "the module fetched the request from its mailbox but did not answer within 500 ms");
}

TEST_F(MailboxExchanges, TakeAnAnswerThatTheLastLookFinds) {
  beginAndWrite(request);
  now += 600ms;
  look(holdsAnswer);
  expectRequest(messageLengthRequest());
}

TEST_F(MailboxExchanges, EndIfTheMailboxIsSwitchedOffMeanwhile) {
  beginAndWrite(request);
  EXPECT_EQ(faultOf([&] { look(mailboxOff); }).kind, NfcFaultKind::TagGone);
}

TEST_F(MailboxExchanges, LookAgainIfTheMessageGoesBeforeItIsMeasured) {
  beginAndWrite(request);
  look(holdsAnswer);
  exchange->refused("empty", now);
  look(holdsAnswer);
  answer({6});
  exchange->refused("empty", now);
  look(holdsAnswer);
  answer({6});
  answer(reply);
  EXPECT_TRUE(exchange->isDone());
}

TEST_F(MailboxExchanges, FetchALongMessagePartByPart) {
  beginAndWrite(request);
  look(holdsAnswer);
  Bytes longReply(115);
  std::iota(longReply.begin(), longReply.end(), std::uint8_t{1});
  answer({114});
  const auto part = [&](std::size_t offset, std::size_t count) {
    expectRequest(readMessageRequest(offset, count));
    const auto first = longReply.begin() + static_cast<std::ptrdiff_t>(offset);
    answer(Bytes(first, first + static_cast<std::ptrdiff_t>(count)));
  };
  part(0, 57);
  part(57, 57);
  EXPECT_FALSE(exchange->isDone());
  part(114, 1);
  EXPECT_EQ(exchange->answer(), longReply);
}

TEST_F(MailboxExchanges, FetchAMessageOfTheWholeMailbox) {
  beginAndWrite(request);
  look(holdsAnswer);
  answer({0xFF});
  for (const std::size_t count : {57U, 57U, 57U, 57U, 28U}) answer(Bytes(count, 0x11));
  EXPECT_EQ(exchange->answer(), Bytes(256, 0x11));
}

TEST_F(MailboxExchanges, SendALongFrameAsPiecesOneAfterTheOther) {
  const Bytes frame(100, 0x22);
  const auto pieces = piecesOf(frame);
  begin(frame);
  look(freeMailbox);
  expectRequest(writeMessageRequest(pieces[0]));
  answer();
  look(holdsRequest);
  look(freeMailbox);
  expectRequest(writeMessageRequest(pieces[1]));
  answer();
  look(holdsRequest);
  look(holdsAnswer);
  expectRequest(messageLengthRequest());
}

TEST_F(MailboxExchanges, EndIfTheModuleDoesNotFetchTheFirstPiece) {
  begin(Bytes(100, 0x22));
  look(freeMailbox);
  answer();
  now += 500ms;
  EXPECT_EQ(faultOf([&] { look(holdsRequest); }).kind, NfcFaultKind::ModuleSilent);
}

TEST_F(MailboxExchanges, TakeAnAnswerToTheFirstPieceForTheAnswer) {
  begin(Bytes(100, 0x22));
  look(freeMailbox);
  answer();
  look(holdsAnswer);
  expectRequest(messageLengthRequest());
}

TEST_F(MailboxExchanges, AssembleAnAnswerFromPieces) {
  beginAndWrite(request);
  const Bytes frame(100, 0x33);
  for (const Bytes& piece : piecesOf(frame)) {
    EXPECT_FALSE(exchange->isDone());
    look(holdsAnswer);
    answer({static_cast<std::uint8_t>(piece.size() - 1)});
    answer(piece);
  }
  EXPECT_EQ(exchange->answer(), frame);
}

TEST_F(MailboxExchanges, EndIfTheRestOfAnAnswerDoesNotCome) {
  beginAndWrite(request);
  look(holdsAnswer);
  const Bytes piece = piecesOf(Bytes(100, 0x33)).front();
  answer({static_cast<std::uint8_t>(piece.size() - 1)});
  answer(piece);
  now += 500ms;
  EXPECT_EQ(faultOf([&] { look(freeMailbox); }).kind, NfcFaultKind::ModuleSilent);
}

TEST_F(MailboxExchanges, EndIfTheTagReturnsAnotherNumberOfBytes) {
  begin(request);
  EXPECT_EQ(faultOf([&] { answer({}); }).kind, NfcFaultKind::Damage);
  EXPECT_EQ(faultOf([&] { answer({1, 2}); }).kind, NfcFaultKind::Damage);
  beginAndWrite(request);
  look(holdsAnswer);
  EXPECT_EQ(faultOf([&] { answer({}); }).kind, NfcFaultKind::Damage);
  answer({6});
  EXPECT_EQ(faultOf([&] { answer(hex("C0 04")); }).kind, NfcFaultKind::Damage);
}

TEST_F(MailboxExchanges, PauseBetweenLooksForATenthOfTheTimeWaited) {
  begin(request);
  EXPECT_EQ(exchange->pause(now), 0ms);
  EXPECT_EQ(exchange->pause(now + 1ms), 1ms);
  EXPECT_EQ(exchange->pause(now + 100ms), 10ms);
  EXPECT_EQ(exchange->pause(now + 400ms), 40ms);
  EXPECT_EQ(exchange->pause(now + 1s), 50ms);
}

TEST_F(MailboxExchanges, DoNotPauseWhenThereIsNothingToWaitFor) {
  beginAndWrite(request);
  now += 100ms;
  look(holdsAnswer);
  EXPECT_EQ(exchange->pause(now), 0ms);
}

}  // namespace
}  // namespace tessara
