#include <ostream>
#include <random>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/hart/HartBytesOf.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

struct Worked {
  const char* name;
  HartFrame frame;
  const char* bytes;
};

void PrintTo(const Worked& worked, std::ostream* out) {
  *out << worked.name;
}

HartFrame burst(const HartAddress& address, const HartBytes& payload) {
  HartFrame frame = hartAnswer(hartRequest(address, 1), {0x00, 0x40}, payload);
  frame.kind = HartFrameKind::Burst;
  return frame;
}

HartFrame toPolling(std::uint8_t address, bool isPrimary = true) {
  return hartRequest(HartAddress::polling(address).forMaster(isPrimary), 0);
}

HartBytes paddedName() {
  const std::string name = "ANALOG MODULE 7 LINE A          ";
  return {name.begin(), name.end()};
}

const HartFrame nameRequest = hartRequest(exampleAddress(), 20);
const HartFrame statusRequest = hartRequest(exampleAddress(), 48);
const HartFrame extendedRequest = hartRequest(exampleAddress(), 512);
const HartBytes shortStatus = bytesOf("00 00 00 00 00 00 02 00 00");
const HartBytes primaryVariableData = bytesOf("27 41 48 00 00");

const std::vector<Worked>& workedFrames() {
  static const std::vector<Worked> frames{
      {"IdentityOfAddress0", toPolling(0), "02 80 00 00 82"},
      {"IdentityOfAddress0BySecondary", toPolling(0, false), "02 00 00 00 02"},
      {"IdentityOfAddress5", toPolling(5), "02 85 00 00 87"},
      {"IdentityOfAddress63", toPolling(63), "02 BF 00 00 BD"},
      {"CapturedIdentity",
       hartAnswer(toPolling(0), {0, 0x14}, bytesOf("FE 1A 89 07 05 02 1B 08 01 21 63 3F")),
       "06 80 00 0E 00 14 FE 1A 89 07 05 02 1B 08 01 21 63 3F 9E"},
      {"OtherCapturedIdentity",
       hartAnswer(toPolling(0), {0, 0}, bytesOf("FE 15 02 05 05 03 0F 10 00 0D 91 43")),
       "06 80 00 0E 00 00 FE 15 02 05 05 03 0F 10 00 0D 91 43 A2"},
      {"Hart6Identity",
       hartAnswer(toPolling(0), {0, 0},
                  bytesOf("FE 1A 89 05 06 02 1B 08 01 21 63 3F 05 04 01 02 00")),
       "06 80 00 13 00 00 FE 1A 89 05 06 02 1B 08 01 21 63 3F 05 04 01 02 00 94"},
      {"Hart7Identity",
       hartAnswer(toPolling(5), {0, 0x40},
                  bytesOf("FE E1 23 05 07 01 03 60 01 0A 0B 0C 05 04 01 02 00 60 C1 60 C1 01")),
       "06 85 00 18 00 40 FE E1 23 05 07 01 03 60 01 0A 0B 0C 05 04 01 02 00 60 C1 60 C1 01 88"},
      {"NameRequest", nameRequest, "82 A1 23 0A 0B 0C 14 00 19"},
      {"Name", hartAnswer(nameRequest, {0, 0x40}, paddedName()),
       "86 A1 23 0A 0B 0C 14 22 00 40 41 4E 41 4C 4F 47 20 4D 4F 44 55 4C 45 20 37 20 4C 49 4E 45 "
       "20 41 20 20 20 20 20 20 20 20 20 20 17"},
      {"StatusRequest", statusRequest, "82 A1 23 0A 0B 0C 30 00 3D"},
      {"StatusOf9Bytes", hartAnswer(statusRequest, {0, 0x50}, shortStatus),
       "86 A1 23 0A 0B 0C 30 0B 00 50 00 00 00 00 00 00 02 00 00 60"},
      {"StatusRequestThatClears", hartRequest(exampleAddress(), 48, shortStatus),
       "82 A1 23 0A 0B 0C 30 09 00 00 00 00 00 00 02 00 00 36"},
      {"StatusOf25Bytes",
       hartAnswer(statusRequest, {0, 0x50},
                  bytesOf("01 00 00 00 00 00 02 00 20 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                          "00")),
       "86 A1 23 0A 0B 0C 30 1B 00 50 01 00 00 00 00 00 02 00 20 00 00 00 00 00 00 00 00 00 00 00 "
       "00 00 00 00 00 51"},
      {"NotImplemented", hartAnswer(nameRequest, {0x40, 0x40}), "86 A1 23 0A 0B 0C 14 02 40 40 1F"},
      {"Busy", hartAnswer(nameRequest, {0x20, 0x40}), "86 A1 23 0A 0B 0C 14 02 20 40 7F"},
      {"CheckByteError", hartAnswer(nameRequest, {0x88, 0}), "86 A1 23 0A 0B 0C 14 02 88 00 97"},
      {"ParityAndCheckByteError", hartAnswer(nameRequest, {0xC8, 0}),
       "86 A1 23 0A 0B 0C 14 02 C8 00 D7"},
      {"ExtendedRequest", extendedRequest, "82 A1 23 0A 0B 0C 1F 02 02 00 12"},
      {"ExtendedAnswer", hartAnswer(extendedRequest, {0, 0x40}, bytesOf("55")),
       "86 A1 23 0A 0B 0C 1F 05 00 40 02 00 55 04"},
      {"ExtendedNotImplemented", hartAnswer(extendedRequest, {0x40, 0x40}),
       "86 A1 23 0A 0B 0C 1F 04 40 40 02 00 10"},
      {"BurstToPrimary", burst(exampleAddress().withBurst(true), primaryVariableData),
       "81 E1 23 0A 0B 0C 01 07 00 40 27 41 48 00 00 26"},
      {"AnswerOfBurstingToSecondary",
       hartAnswer(hartRequest(exampleAddress().forMaster(false).withBurst(true), 1), {0, 0x40},
                  primaryVariableData),
       "86 61 23 0A 0B 0C 01 07 00 40 27 41 48 00 00 A1"},
      {"CallByTag", hartRequest(HartAddress::unique(0, 0), 11, bytesOf("00 00 00 00 00 00")),
       "82 80 00 00 00 00 0B 06 00 00 00 00 00 00 0F"},
  };
  return frames;
}

class WorkedFrame : public ::testing::TestWithParam<Worked> {};

TEST_P(WorkedFrame, IsEncodedByteForByte) {
  EXPECT_EQ(encodeHart(GetParam().frame), bytesOf(GetParam().bytes));
}

TEST_P(WorkedFrame, IsDecodedFromItsBytes) {
  const auto found = receptionsOf(afterPreambles(bytesOf(GetParam().bytes)));
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].damage, HartDamage::None);
  EXPECT_EQ(found[0].frame, GetParam().frame);
}

INSTANTIATE_TEST_SUITE_P(Hart, WorkedFrame, ::testing::ValuesIn(workedFrames()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(HartFrame, HasNumberAndPayloadOfAShortCommand) {
  const HartFrame answer = hartAnswer(nameRequest, {0, 0x40}, bytesOf("41 42"));
  EXPECT_EQ(answer.commandNumber(), 20);
  EXPECT_THAT(answer.payload(), ElementsAre(0x41, 0x42));
}

TEST(HartFrame, HasNumberAndPayloadOfAnExtendedCommand) {
  const HartFrame request = hartRequest(exampleAddress(), 0xABCD, bytesOf("01 02"));
  EXPECT_EQ(request.command, 31);
  EXPECT_EQ(request.commandNumber(), 0xABCD);
  EXPECT_THAT(request.payload(), ElementsAre(0x01, 0x02));
  const HartFrame answer = hartAnswer(request, {0, 0}, bytesOf("77"));
  EXPECT_EQ(answer.commandNumber(), 0xABCD);
  EXPECT_THAT(answer.payload(), ElementsAre(0x77));
}

TEST(HartFrame, TakesAnExtendedCommandWithoutANumberForCommand31) {
  HartFrame request = extendedRequest;
  request.data = {0x02};
  EXPECT_EQ(request.commandNumber(), 31);
  EXPECT_EQ(hartAnswer(request, {5, 0}).data, bytesOf("05 00"));
}

TEST(HartFrame, SendsCommandsUpTo253InTheCommandByte) {
  EXPECT_EQ(hartRequest(exampleAddress(), 253).command, 253);
  EXPECT_EQ(hartRequest(exampleAddress(), 256).command, 31);
}

TEST(HartFrame, CarriesExpansionBytesInTheCheckByte) {
  HartFrame frame = nameRequest;
  frame.expansion = bytesOf("11 22 33");
  const HartBytes bytes = encodeHart(frame);
  EXPECT_EQ(bytes[0], 0xE2);
  EXPECT_EQ(hartCheckByte(bytes), 0);
  const auto found = receptionsOf(afterPreambles(bytes));
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].frame, frame);
}

TEST(HartFrame, HasThePhysicalLayer) {
  HartFrame frame = nameRequest;
  frame.isPsk = true;
  EXPECT_EQ(encodeHart(frame)[0], 0x8A);
  const auto found = receptionsOf(afterPreambles(encodeHart(frame)));
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_TRUE(found[0].frame.isPsk);
}

TEST(HartFrame, GoesOnTheLineAfterItsPreambles) {
  EXPECT_EQ(encodeHart(toPolling(0), 3), bytesOf("FF FF FF 02 80 00 00 82"));
}

TEST(HartFrame, HasRoomFor255DataAnd3ExpansionBytes) {
  HartFrame frame = nameRequest;
  frame.data.assign(255, 0x55);
  EXPECT_THAT(encodeHart(frame), SizeIs(264));
  frame.data.push_back(0x55);
  EXPECT_THROW(encodeHart(frame), std::length_error);
  frame.data.clear();
  frame.expansion.assign(4, 0);
  EXPECT_THROW(encodeHart(frame), std::length_error);
}

TEST(HartAddress, TakesTheLowSixBitsOfAPollingAddress) {
  EXPECT_EQ(HartAddress::polling(192 + 5).pollingAddress(), 5);
  EXPECT_THAT(HartAddress::polling(63).bytes(), ElementsAre(0xBF));
}

TEST(HartAddress, LeavesOutTheTopBitsOfTheDeviceType) {
  EXPECT_THAT(HartAddress::unique(0xE123, 0x0A0B0C).bytes(),
              ElementsAre(0xA1, 0x23, 0x0A, 0x0B, 0x0C));
  EXPECT_EQ(HartAddress::unique(0xE123, 1), HartAddress::unique(0x2123, 1));
}

TEST(HartAddress, IsTheSameWithAnyFlags) {
  const HartAddress address = exampleAddress();
  EXPECT_TRUE(address.isSameAddress(address.forMaster(false).withBurst(true)));
  EXPECT_FALSE(address.isSameAddress(HartAddress::unique(0xE123, 0x0A0B0D)));
  EXPECT_FALSE(HartAddress::polling(0).isSameAddress(HartAddress::unique(0, 0)));
  EXPECT_TRUE(address.isOfPrimaryMaster());
  EXPECT_FALSE(address.forMaster(false).isOfPrimaryMaster());
  EXPECT_TRUE(address.withBurst(true).isBursting());
}

TEST(HartAddress, RecognisesTheBroadcastAddress) {
  EXPECT_TRUE(HartAddress::unique(0, 0).isBroadcast());
  EXPECT_TRUE(HartAddress::unique(0, 0).forMaster(false).isBroadcast());
  EXPECT_FALSE(HartAddress::polling(0).isBroadcast());
  EXPECT_FALSE(HartAddress::unique(0, 1).isBroadcast());
}

TEST(HartAddress, IsShownAsText) {
  EXPECT_EQ(hartAddressText(exampleAddress()), "address A1 23 0A 0B 0C");
  EXPECT_EQ(hartAddressText(HartAddress::polling(5)), "polling address 5");
}

/// Any frame that the line can carry.
HartFrame randomFrame(std::mt19937& random) {
  const auto byte = [&random] { return static_cast<std::uint8_t>(random() & 0xFFU); };
  constexpr std::array allKinds{HartFrameKind::Burst, HartFrameKind::Request,
                                HartFrameKind::Answer};
  HartFrame frame;
  frame.kind = allKinds.at(random() % allKinds.size());
  frame.isPsk = random() % 2 == 0;
  frame.address = HartAddress::fromBytes(
      random() % 2 == 0 ? HartBytes{byte()} : HartBytes{byte(), byte(), byte(), byte(), byte()});
  for (std::size_t left = random() % 4; left > 0; --left) frame.expansion.push_back(byte());
  frame.command = random() % 3 == 0 ? extendedHartCommand : byte();
  const std::size_t least = frame.isFromModule() ? 2 : 0;
  for (std::size_t left = least + random() % (256 - least); left > 0; --left) {
    frame.data.push_back(byte());
  }
  return frame;
}

TEST(HartFrame, IsDecodedToItselfWhateverItHolds) {
  std::mt19937 random(20240917);
  for (int round = 0; round < 2000; ++round) {
    const HartFrame frame = randomFrame(random);
    const auto found = receptionsOf(encodeHart(frame, 2 + random() % 30));
    ASSERT_THAT(found, SizeIs(1)) << "round " << round;
    EXPECT_EQ(found[0].damage, HartDamage::None) << "round " << round;
    EXPECT_EQ(found[0].frame, frame) << "round " << round;
  }
}

TEST(HartFrame, BuiltFromNumberAndPayloadHasThem) {
  std::mt19937 random(4711);
  for (int round = 0; round < 2000; ++round) {
    auto number = static_cast<std::uint16_t>(random());
    if (number == 31 || number == 254 || number == 255) number = 512;
    HartBytes payload(random() % 250);
    for (std::uint8_t& byte : payload) byte = static_cast<std::uint8_t>(random());
    const HartFrame request = hartRequest(exampleAddress(), number, payload);
    EXPECT_EQ(request.commandNumber(), number);
    EXPECT_EQ(HartBytes(request.payload().begin(), request.payload().end()), payload);
    const HartFrame answer = hartAnswer(request, {0, 1}, payload);
    EXPECT_EQ(answer.commandNumber(), number);
    EXPECT_EQ(HartBytes(answer.payload().begin(), answer.payload().end()), payload);
  }
}

}  // namespace
}  // namespace tessara::testing
