#include <chrono>
#include <numeric>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/nfc/MailboxPieces.h"
#include "drivers/nfc/NfcSample.h"
#include "drivers/nfc/TagCommands.h"
#include "simulator/ModbusCodec.h"
#include "simulator/nfc/SimulatedTag.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using testing::hex;
using testing::listedUid;
using testing::nfcSample;

constexpr std::uint8_t mailboxOn = 0x01;

class SimulatedTags : public ::testing::Test {
 protected:
  AirAnswer ask(const AirRequest& question) {
    const auto said = tag.answer(question, now);
    EXPECT_TRUE(said.has_value());
    return said.value_or(AirAnswer());
  }
  std::uint8_t control() { return ask(readControlRequest()).data.at(0); }
  void switchMailboxOn() { ask(writeControlRequest(mailboxOn)); }
  void order(FaultEffect effect) {
    tag.module().setFaults({{std::move(effect), faults::Every{1}}});
  }

  const Bytes request = modbusFrame(defaultAddress, readInputRegistersFunction, hex("00 04 00 01"));
  const Bytes answer = modbusFrame(defaultAddress, readInputRegistersFunction, hex("02 20 00"));
  SimulatedTag tag{nfcSample().module, listedUid};
  SimulatedTag::Clock::time_point now{1h};
};

TEST_F(SimulatedTags, ReportTheirNumber) {
  EXPECT_EQ(ask(inventoryRequest()).data, hex("00 88 77 66 55 44 26 02 E0"));
}

TEST_F(SimulatedTags, IgnoreRequestsToOthers) {
  AirRequest addressed{0x22, tagCommand::readMessageLength, listedUid, {}};
  EXPECT_NE(tag.answer(addressed, now), std::nullopt);
  addressed.uid[7] = 0x89;
  EXPECT_EQ(tag.answer(addressed, now), std::nullopt);
}

TEST_F(SimulatedTags, StartWithTheMailboxOff) {
  EXPECT_EQ(control(), 0x00);
  EXPECT_TRUE(ask(writeMessageRequest(request)).isRefusal());
  switchMailboxOn();
  EXPECT_EQ(control(), 0x01);
}

TEST_F(SimulatedTags, ForgetTheMailboxWithTheField) {
  switchMailboxOn();
  tag.losePower();
  EXPECT_EQ(control(), 0x00);
}

TEST_F(SimulatedTags, CarryARequestToTheModuleAndItsAnswerBack) {
  switchMailboxOn();
  EXPECT_EQ(ask(writeMessageRequest(request)), AirAnswer());
  EXPECT_EQ(control(), 0x43);
  EXPECT_EQ(ask(messageLengthRequest()).data, (Bytes{6}));
  EXPECT_EQ(ask(readMessageRequest(0, 1)).data, answer) << "the whole message";
  EXPECT_EQ(control() & 0x02, 0);
}

TEST_F(SimulatedTags, DeliverPartsAndEndWithTheLastByte) {
  switchMailboxOn();
  ask(writeMessageRequest(request));
  EXPECT_EQ(ask(readMessageRequest(2, 3)).data, Bytes(answer.begin() + 2, answer.begin() + 5));
  EXPECT_EQ(control(), 0x43);
  EXPECT_TRUE(ask(readMessageRequest(2, 6)).isRefusal()) << "more than there is";
  EXPECT_EQ(ask(readMessageRequest(6, 1)).data, (Bytes{answer.back()}));
  EXPECT_EQ(control() & 0x02, 0);
  EXPECT_TRUE(ask(readMessageRequest(0, 1)).isRefusal());
  EXPECT_TRUE(ask(messageLengthRequest()).isRefusal());
}

TEST_F(SimulatedTags, TakeNoSecondMessageForTheModule) {
  tag.sendModuleToSleep(true);
  switchMailboxOn();
  EXPECT_FALSE(ask(writeMessageRequest(request)).isRefusal());
  EXPECT_EQ(control(), 0x85);
  EXPECT_TRUE(ask(writeMessageRequest(request)).isRefusal());
}

TEST_F(SimulatedTags, AreEmptiedBySwitchingTheMailboxOffAndOn) {
  tag.sendModuleToSleep(true);
  switchMailboxOn();
  ask(writeMessageRequest(request));
  ask(writeControlRequest(0x00));
  switchMailboxOn();
  EXPECT_EQ(control(), 0x01);
}

TEST_F(SimulatedTags, LetTheModuleAnswerLate) {
  order(faults::LateReply{200ms});
  switchMailboxOn();
  ask(writeMessageRequest(request));
  EXPECT_EQ(control(), 0x81) << "fetched";
  now += 200ms;
  EXPECT_EQ(control(), 0x43);
}

TEST_F(SimulatedTags, DropALateAnswerForWhichThereIsNoRoom) {
  tag.module().setFaults({{faults::LateReply{200ms}, faults::At{1}}});
  switchMailboxOn();
  ask(writeMessageRequest(request));
  const Bytes second = modbusFrame(defaultAddress, readInputRegistersFunction, hex("00 03 00 01"));
  EXPECT_FALSE(ask(writeMessageRequest(second)).isRefusal());
  EXPECT_EQ(control(), 0x85) << "the module has no time yet";
  now += 200ms;
  EXPECT_EQ(control(), 0x43);
  EXPECT_EQ(ask(readMessageRequest(0, 1)).data,
            modbusFrame(defaultAddress, readInputRegistersFunction, hex("02 10 10")));
}

TEST_F(SimulatedTags, CanAppearBusy) {
  switchMailboxOn();
  tag.blockMailbox(true);
  EXPECT_EQ(control(), 0x85);
  EXPECT_TRUE(ask(writeMessageRequest(request)).isRefusal());
  ask(writeControlRequest(0x00));
  switchMailboxOn();
  EXPECT_EQ(control(), 0x85);
  tag.blockMailbox(false);
  EXPECT_EQ(control(), 0x01);
}

TEST_F(SimulatedTags, DoNotAnswerWhatIsNotARequestToTheModule) {
  switchMailboxOn();
  for (const Bytes& message :
       {hex("C0 04"), hex("C0 04 00 04 00 01 00 00"), modbusFrame(7, reportServerIdFunction)}) {
    EXPECT_FALSE(ask(writeMessageRequest(message)).isRefusal());
    EXPECT_EQ(control(), 0x81);
  }
}

TEST_F(SimulatedTags, TakeAndDeliverLongFramesInPieces) {
  switchMailboxOn();
  const Bytes longRequest = modbusFrame(defaultAddress, 0x2B, Bytes(100, 0x11));
  for (const Bytes& piece : piecesOf(longRequest)) {
    EXPECT_EQ(control() & 0x06, 0);
    EXPECT_FALSE(ask(writeMessageRequest(piece)).isRefusal());
  }
  EXPECT_EQ(ask(readMessageRequest(0, 1)).data, modbusExceptionFrame(defaultAddress, 0x2B, 0x01));
  ask(writeMessageRequest(
      modbusFrame(defaultAddress, readInputRegistersFunction, hex("03 E8 00 7D"))));
  PieceAssembler assembler;
  std::optional<Bytes> frame;
  for (int piece = 0; piece < 5; ++piece) {
    EXPECT_EQ(control(), 0x43) << piece;
    frame = assembler.add(ask(readMessageRequest(0, 1)).data);
  }
  ASSERT_TRUE(frame.has_value());
  EXPECT_EQ(frame->size(), 255U);
}

TEST_F(SimulatedTags, ProtectTheMailboxModeByAPassword) {
  const AirRequest forbid{0x02, tagCommand::writeConfiguration, {}, {mailboxMode, 0x00}};
  const AirRequest mode{0x02, tagCommand::readConfiguration, {}, {mailboxMode}};
  const auto password = [](Bytes data) {
    return AirRequest{0x02, tagCommand::presentPassword, {}, std::move(data)};
  };
  EXPECT_TRUE(ask(forbid).isRefusal());
  EXPECT_TRUE(ask(password(hex("00 00 00 00 00 00 00 00 01"))).isRefusal());
  EXPECT_TRUE(ask(forbid).isRefusal());
  EXPECT_FALSE(ask(password(Bytes(9))).isRefusal());
  EXPECT_FALSE(ask(forbid).isRefusal());
  EXPECT_EQ(ask(mode).data, (Bytes{0}));
  switchMailboxOn();
  EXPECT_EQ(control(), 0x00);
}

TEST_F(SimulatedTags, RefuseUnknownCommands) {
  EXPECT_EQ(ask({0x02, tagCommand::readBlock, {}, {0x50}}), airRefusal(0x10));
  EXPECT_EQ(ask({0x02, 0xC9, {}, {}}), airRefusal(0x01));
  for (const std::uint8_t command :
       {tagCommand::readDynamic, tagCommand::writeDynamic, tagCommand::readConfiguration,
        tagCommand::writeConfiguration, tagCommand::readMessage, tagCommand::writeMessage,
        tagCommand::presentPassword}) {
    EXPECT_EQ(ask({0x02, command, {}, {}}), airRefusal(0x02)) << static_cast<int>(command);
  }
  for (const std::uint8_t command : {tagCommand::readDynamic, tagCommand::readConfiguration}) {
    EXPECT_EQ(ask({0x02, command, {}, {0x55}}), airRefusal(0x10));
  }
}

TEST_F(SimulatedTags, ReportUnpluggingOnce) {
  order(faults::Unplug{std::nullopt, 50ms});
  switchMailboxOn();
  ask(writeMessageRequest(request));
  const auto unplug = tag.takeUnplug();
  ASSERT_TRUE(unplug.has_value());
  EXPECT_EQ(unplug->replugAfter, 50ms);
  EXPECT_FALSE(tag.takeUnplug().has_value());
}

}  // namespace
}  // namespace tessara
