// The simulated module, without a port.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/NamedPorts.h"
#include "drivers/hart/HartBytesOf.h"
#include "simulator/hart/HartLine.h"
#include "simulator/hart/HartModuleFile.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

SimulatedHartModule sampleModule() {
  SimulatedHartModule module;
  module.pollingAddress = 5;
  module.identity = bytesOf("FE E1 23 05 07 01 03 60 01 0A 0B 0C 05 04 01 02 00 60 C1 60 C1 01");
  module.answers = {
      {20, HartBytes(32, 'N')}, {48, bytesOf("00 00 00 00 00 00 02 00 00")}, {512, bytesOf("55")}};
  module.tag = {1, 2, 3, 4, 5, 6};
  module.deviceStatus = 0x50;
  return module;
}

SimulatedHartModule faulty(const HartEffect& effect,
                           const FaultTrigger& trigger = faults::Every{1}) {
  SimulatedHartModule module = sampleModule();
  module.faults = {{effect, trigger}};
  return module;
}

const HartFrame slaveNameRequest = hartRequest(exampleAddress(), 20);
const HartFrame identityRequest = hartRequest(HartAddress::polling(5), 0);

/// What a line sends for these bytes; the pieces of an answer joined.
Bytes sentFor(HartLine& line, const HartBytes& bytes) {
  Bytes sent;
  for (const SimulatedAnswer& answer : line.receive(bytes)) {
    sent = joined({sent, answer.bytes});
    for (const SimulatedPiece& piece : answer.more) sent = joined({sent, piece.bytes});
  }
  return sent;
}

Bytes sentFor(HartLine& line, const HartFrame& request) {
  return sentFor(line, encodeHart(request, 5));
}

/// The same from a fresh line with that module.
Bytes answerOf(const SimulatedHartModule& module, const HartFrame& request) {
  HartLine line(module);
  return sentFor(line, request);
}

/// The data of the only frame in the answer to `request`; nothing if there is no answer.
HartBytes dataOf(HartLine& line, const HartFrame& request) {
  const auto found = receptionsOf(sentFor(line, request));
  return found.size() == 1 && found[0].damage == HartDamage::None ? found[0].frame.data
                                                                  : HartBytes();
}

HartBytes dataOf(const HartFrame& request) {
  HartLine line(sampleModule());
  return dataOf(line, request);
}

TEST(HartSlave, AnswersTheWorkedRequestsByteForByte) {
  HartLine line(sampleModule());
  EXPECT_EQ(sentFor(line, afterPreambles(bytesOf("02 85 00 00 87"))),
            afterPreambles(bytesOf("06 85 00 18 00 50 FE E1 23 05 07 01 03 60 01 0A 0B 0C 05 04 "
                                   "01 02 00 60 C1 60 C1 01 98")));
  EXPECT_EQ(sentFor(line, afterPreambles(bytesOf("82 A1 23 0A 0B 0C 30 00 3D"))),
            afterPreambles(bytesOf("86 A1 23 0A 0B 0C 30 0B 00 50 00 00 00 00 00 00 02 00 00 60")));
}

TEST(HartSlave, IgnoresARequestWithFewerThanTwoPreambles) {
  HartLine line(sampleModule());
  EXPECT_THAT(sentFor(line, encodeHart(slaveNameRequest, 0)), IsEmpty());
  EXPECT_THAT(sentFor(line, encodeHart(slaveNameRequest, 1)), IsEmpty());
  EXPECT_THAT(sentFor(line, encodeHart(slaveNameRequest, 2)), SizeIs(5 + 8 + 34 + 1));
}

TEST(HartSlave, ReportsAWrongCheckByteInAFrameForIt) {
  HartLine line(sampleModule());
  HartBytes bytes = encodeHart(slaveNameRequest, 5);
  bytes.back() = static_cast<std::uint8_t>(~bytes.back());
  EXPECT_EQ(sentFor(line, bytes), afterPreambles(bytesOf("86 A1 23 0A 0B 0C 14 02 88 00 97")));
}

TEST(HartSlave, IsSilentOnAWrongCheckByteInAFrameForOthers) {
  HartLine line(sampleModule());
  HartBytes bytes = encodeHart(hartRequest(HartAddress::unique(1, 1), 20), 5);
  bytes.back() = static_cast<std::uint8_t>(~bytes.back());
  EXPECT_THAT(sentFor(line, bytes), IsEmpty());
}

TEST(HartSlave, IsSilentOnAFrameThatBreaksOff) {
  HartLine line(sampleModule());
  HartBytes bytes = encodeHart(slaveNameRequest, 5);
  bytes.pop_back();
  EXPECT_THAT(sentFor(line, bytes), IsEmpty());
  EXPECT_TRUE(line.isFrameOpen());
  EXPECT_EQ(line.silence(), std::nullopt);
  EXPECT_FALSE(line.isFrameOpen());
  EXPECT_THAT(dataOf(line, slaveNameRequest), SizeIs(34));
}

TEST(HartSlave, AnswersARequestThatSilenceFreesFromNoise) {
  HartLine line(sampleModule());
  EXPECT_THAT(sentFor(line, joined({bytesOf("FF FF 82 00 00 00 00 00 00 FF"),
                                    encodeHart(slaveNameRequest, 5)})),
              IsEmpty());
  EXPECT_TRUE(line.silence().has_value());
}

TEST(HartSlave, ForgetsAFrameWhoseLineHasGone) {
  HartLine line(sampleModule());
  line.receive(bytesOf("FF FF 82 A1"));
  line.forgetOpenFrame();
  EXPECT_FALSE(line.isFrameOpen());
}

TEST(HartSlave, HearsNothingWhileItSends) {
  EXPECT_TRUE(HartLine(sampleModule()).isDeafWhileSending());
}

TEST(HartSlave, IsSilentAtOtherAddresses) {
  EXPECT_THAT(dataOf(hartRequest(HartAddress::polling(4), 0)), IsEmpty());
  EXPECT_THAT(dataOf(hartRequest(HartAddress::unique(0xE123, 0x0A0B0D), 20)), IsEmpty());
}

TEST(HartSlave, IsSilentAtItsPollingAddressExceptOnCommand0) {
  EXPECT_THAT(dataOf(hartRequest(HartAddress::polling(5), 20)), IsEmpty());
  EXPECT_THAT(dataOf(identityRequest), SizeIs(24));
}

TEST(HartSlave, IsSilentOnAnswersAndBursts) {
  HartLine line(sampleModule());
  EXPECT_THAT(sentFor(line, hartAnswer(slaveNameRequest, {0, 0})), IsEmpty());
}

TEST(HartSlave, AnswersEitherMasterAtTheAddressOfTheRequest) {
  for (const bool isPrimary : {true, false}) {
    HartLine line(sampleModule());
    const auto address = exampleAddress().forMaster(isPrimary);
    const auto found = receptionsOf(sentFor(line, hartRequest(address, 20)));
    ASSERT_THAT(found, SizeIs(1));
    EXPECT_EQ(found[0].frame.address, address);
  }
}

TEST(HartSlave, AnswersACallByItsTagOrName) {
  const auto everybody = HartAddress::unique(0, 0);
  EXPECT_THAT(dataOf(hartRequest(everybody, 11, bytesOf("01 02 03 04 05 06"))), SizeIs(24));
  EXPECT_THAT(dataOf(hartRequest(everybody, 21, HartBytes(32, 'N'))), SizeIs(24));
  EXPECT_THAT(dataOf(hartRequest(exampleAddress(), 11, bytesOf("01 02 03 04 05 06"))), SizeIs(24));
}

TEST(HartSlave, IsSilentOnACallByAnotherTagOrName) {
  const auto everybody = HartAddress::unique(0, 0);
  EXPECT_THAT(dataOf(hartRequest(everybody, 11, bytesOf("01 02 03 04 05 07"))), IsEmpty());
  EXPECT_THAT(dataOf(hartRequest(everybody, 11, bytesOf("01 02"))), IsEmpty());
  EXPECT_THAT(dataOf(hartRequest(everybody, 21, HartBytes(32, 'M'))), IsEmpty());
}

TEST(HartSlave, IsSilentOnOtherBroadcastCommands) {
  EXPECT_THAT(dataOf(hartRequest(HartAddress::unique(0, 0), 20)), IsEmpty());
}

TEST(HartSlave, RefusesUnknownCommands) {
  EXPECT_THAT(dataOf(hartRequest(exampleAddress(), 99)), ElementsAre(64, 0x50));
  EXPECT_THAT(dataOf(hartRequest(exampleAddress(), 600)), ElementsAre(64, 0x50, 0x02, 0x58));
}

TEST(HartSlave, AnswersExtendedCommandsWithTheirNumber) {
  EXPECT_THAT(dataOf(hartRequest(exampleAddress(), 512)), ElementsAre(0, 0x50, 0x02, 0x00, 0x55));
}

TEST(HartSlave, RefusesAnExtendedCommandWithoutItsNumber) {
  HartFrame request = hartRequest(exampleAddress(), 512);
  request.data.pop_back();
  EXPECT_THAT(dataOf(request), ElementsAre(5, 0x50));
}

TEST(HartSlave, IgnoresExtraData) {
  EXPECT_THAT(dataOf(hartRequest(exampleAddress(), 20, bytesOf("01 02 03"))), SizeIs(34));
}

TEST(HartSlave, RefusesAStatusRequestWithTooFewData) {
  EXPECT_THAT(dataOf(hartRequest(exampleAddress(), 48, bytesOf("00"))), ElementsAre(5, 0x50));
  EXPECT_THAT(dataOf(hartRequest(exampleAddress(), 48, HartBytes(8, 0))), ElementsAre(5, 0x50));
}

TEST(HartSlave, ClearsMoreStatusForTheMasterThatHasSeenTheStatus) {
  HartLine line(sampleModule());
  const HartBytes status = bytesOf("00 00 00 00 00 00 02 00 00");
  dataOf(line, hartRequest(exampleAddress(), 48, HartBytes(9, 9)));
  EXPECT_EQ(dataOf(line, slaveNameRequest).at(1), 0x50);
  dataOf(line, hartRequest(exampleAddress(), 48, status));
  EXPECT_EQ(dataOf(line, slaveNameRequest).at(1), 0x40);
  EXPECT_EQ(dataOf(line, hartRequest(exampleAddress().forMaster(false), 20)).at(1), 0x50);
}

TEST(HartSlave, RefusesAStatusRequestIfItHasNone) {
  SimulatedHartModule module = sampleModule();
  module.answers.erase(48);
  HartLine line(module);
  EXPECT_THAT(dataOf(line, hartRequest(exampleAddress(), 48)), ElementsAre(64, 0x50));
}

TEST(HartSlave, SendsItsPreamblesBeforeEachAnswer) {
  SimulatedHartModule module = sampleModule();
  module.preambles = 7;
  const Bytes sent = answerOf(module, slaveNameRequest);
  EXPECT_EQ(Bytes(sent.begin(), sent.begin() + 8), joined({Bytes(7, 0xFF), bytesOf("86")}));
}

TEST(HartSlave, RefusesAnInvalidModule) {
  SimulatedHartModule module = sampleModule();
  module.pollingAddress = 64;
  EXPECT_EQ(errorOf([&] { HartLine line(module); }), "a polling address is from 0 to 63");
  module = sampleModule();
  module.identity.resize(11);
  EXPECT_THAT(errorOf([&] { HartLine line(module); }), HasSubstr("not the identity of a module"));
  EXPECT_EQ(errorOf([] { HartLine line(faulty(faults::NoReply{}, faults::At{0})); }),
            "requests are counted from 1");
}

TEST(HartFault, FallsOnTheRequestsThatItIsOrderedFor) {
  HartLine line(faulty(faults::ResponseCode{32}, faults::At{2}));
  EXPECT_EQ(dataOf(line, slaveNameRequest).at(0), 0);
  EXPECT_EQ(dataOf(line, slaveNameRequest).at(0), 32);
  EXPECT_EQ(dataOf(line, slaveNameRequest).at(0), 0);
}

TEST(HartFault, CountsOnlyRequestsForTheModule) {
  HartLine line(faulty(faults::ResponseCode{32}, faults::At{2}));
  dataOf(line, hartRequest(HartAddress::polling(9), 0));
  EXPECT_EQ(dataOf(line, slaveNameRequest).at(0), 0);
  EXPECT_EQ(dataOf(line, slaveNameRequest).at(0), 32);
}

TEST(HartFault, AnswersWithAResponseCodeAndDataIfItIsAWarning) {
  EXPECT_EQ(answerOf(faulty(faults::ResponseCode{7}), slaveNameRequest),
            encodeHart(hartAnswer(slaveNameRequest, {7, 0x50}), 5));
  EXPECT_EQ(answerOf(faulty(faults::ResponseCode{8}), slaveNameRequest),
            encodeHart(hartAnswer(slaveNameRequest, {8, 0x50}, HartBytes(32, 'N')), 5));
  const HartFrame extended = hartRequest(exampleAddress(), 512);
  EXPECT_EQ(answerOf(faulty(faults::ResponseCode{7}), extended),
            encodeHart(hartAnswer(extended, {7, 0x50}), 5));
}

TEST(HartFault, ReportsACommunicationError) {
  EXPECT_EQ(answerOf(faulty(faults::CommunicationError{0x48}), slaveNameRequest),
            afterPreambles(bytesOf("86 A1 23 0A 0B 0C 14 02 C8 00 D7")));
}

TEST(HartFault, DelaysTheAnswerForSomeIdenticalRequests) {
  HartLine line(faulty(faults::DelayedAnswer{2}, faults::At{1}));
  EXPECT_THAT(dataOf(line, slaveNameRequest), ElementsAre(33, 0x50));
  EXPECT_THAT(dataOf(line, slaveNameRequest), ElementsAre(34, 0x50));
  EXPECT_EQ(dataOf(line, identityRequest).at(0), 0);
  EXPECT_THAT(dataOf(line, slaveNameRequest), ElementsAre(34, 0x50));
  EXPECT_THAT(dataOf(line, slaveNameRequest), SizeIs(34));
}

TEST(HartFault, ReportsAColdStart) {
  EXPECT_EQ(dataOf(slaveNameRequest).at(1), 0x50);
  HartLine line(faulty(faults::ColdStart{}, faults::At{1}));
  EXPECT_EQ(dataOf(line, slaveNameRequest).at(1), 0x70);
  EXPECT_EQ(dataOf(line, slaveNameRequest).at(1), 0x50);
}

TEST(HartFault, AnswersAnotherCommand) {
  const auto found = receptionsOf(answerOf(faulty(faults::WrongCommand{33}), slaveNameRequest));
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].frame.command, 33);
}

TEST(HartFault, AnswersFromAnotherAddress) {
  const auto found = receptionsOf(answerOf(faulty(faults::WrongAddress{0x77}), slaveNameRequest));
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].frame.address, HartAddress::unique(0xE123, 0x0A0B77));
  const auto shortly = receptionsOf(answerOf(faulty(faults::WrongAddress{9}), identityRequest));
  ASSERT_THAT(shortly, SizeIs(1));
  EXPECT_EQ(shortly[0].frame.address, HartAddress::polling(9));
}

TEST(HartFault, SpoilsTheCheckByte) {
  const auto found = receptionsOf(answerOf(faulty(faults::BadChecksum{}), slaveNameRequest));
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].damage, HartDamage::CheckByte);
}

TEST(HartFault, SendsAnotherNumberOfPreambles) {
  for (const std::size_t count : {0U, 1U, 30U}) {
    EXPECT_THAT(answerOf(faulty(faults::Preambles{count}), slaveNameRequest), SizeIs(count + 43));
  }
}

TEST(HartFault, CutsTheAnswerOff) {
  EXPECT_THAT(answerOf(faulty(faults::CutOff{12}), slaveNameRequest), SizeIs(12));
  EXPECT_THAT(answerOf(faulty(faults::CutOff{300}), slaveNameRequest), SizeIs(48));
}

TEST(HartFault, LeavesAGapInTheAnswer) {
  HartLine line(faulty(faults::Gap{10, 60ms}));
  const auto answers = line.receive(encodeHart(slaveNameRequest, 5));
  ASSERT_THAT(answers, SizeIs(1));
  EXPECT_THAT(answers[0].bytes, SizeIs(10));
  ASSERT_THAT(answers[0].more, SizeIs(1));
  EXPECT_EQ(answers[0].more[0].pause, 60ms);
  EXPECT_EQ(joined({answers[0].bytes, answers[0].more[0].bytes}),
            answerOf(sampleModule(), slaveNameRequest));
}

TEST(HartFault, UnplugsThePort) {
  HartLine line(faulty(faults::Unplug{3, 50ms}));
  const auto answers = line.receive(encodeHart(slaveNameRequest, 5));
  ASSERT_THAT(answers, SizeIs(1));
  EXPECT_THAT(answers[0].bytes, SizeIs(3));
  ASSERT_TRUE(answers[0].unplug.has_value());
  EXPECT_EQ(answers[0].unplug->replugAfter, 50ms);
}

TEST(HartFault, SendsTheRequestBack) {
  EXPECT_EQ(answerOf(faulty(faults::Echo{}), slaveNameRequest),
            joined({encodeHart(slaveNameRequest, 5), answerOf(sampleModule(), slaveNameRequest)}));
}

TEST(HartFault, SendsTrafficOfTheOtherMaster) {
  const auto found = receptionsOf(answerOf(faulty(faults::OtherMaster{}), slaveNameRequest));
  ASSERT_THAT(found, SizeIs(3));
  EXPECT_EQ(found[0].frame.kind, HartFrameKind::Request);
  EXPECT_EQ(found[1].frame.kind, HartFrameKind::Answer);
  EXPECT_FALSE(found[0].frame.address.isOfPrimaryMaster());
  EXPECT_FALSE(found[1].frame.address.isOfPrimaryMaster());
  EXPECT_TRUE(found[2].frame.address.isOfPrimaryMaster());
}

TEST(HartFault, SendsABurstFrameToEitherMaster) {
  for (const bool isPrimary : {true, false}) {
    const auto found =
        receptionsOf(answerOf(faulty(faults::BurstFrame{isPrimary}), slaveNameRequest));
    ASSERT_THAT(found, SizeIs(2));
    EXPECT_EQ(found[0].frame.kind, HartFrameKind::Burst);
    EXPECT_EQ(found[0].frame.address.isOfPrimaryMaster(), isPrimary);
    EXPECT_TRUE(found[0].frame.address.isBursting());
    EXPECT_TRUE(found[1].frame.address.isBursting());
  }
}

TEST(HartFault, MakesNoiseBeforeAndAfter) {
  SimulatedHartModule module = faulty(faults::Noise{{0x00, 0x55}});
  module.faults.push_back({faults::TrailingNoise{{0x00}}, faults::Every{1}});
  EXPECT_EQ(answerOf(module, slaveNameRequest),
            joined({bytesOf("00 55"), answerOf(sampleModule(), slaveNameRequest), bytesOf("00")}));
}

TEST(HartFault, AnswersLateOrNotAtAll) {
  HartLine late(faulty(faults::LateReply{400ms}));
  const auto answers = late.receive(encodeHart(slaveNameRequest, 5));
  ASSERT_THAT(answers, SizeIs(1));
  EXPECT_EQ(answers[0].delay, 400ms);
  EXPECT_THAT(answerOf(faulty(faults::NoReply{}), slaveNameRequest), IsEmpty());
}

TEST(HartFault, CombinesWithOthersInAnyOrder) {
  SimulatedHartModule one = faulty(faults::ColdStart{});
  one.faults.push_back({faults::ResponseCode{7}, faults::Every{1}});
  one.faults.push_back({faults::WrongCommand{9}, faults::Every{1}});
  SimulatedHartModule other = one;
  std::reverse(other.faults.begin(), other.faults.end());
  EXPECT_EQ(answerOf(one, slaveNameRequest), answerOf(other, slaveNameRequest));
}

}  // namespace
}  // namespace tessara::testing
