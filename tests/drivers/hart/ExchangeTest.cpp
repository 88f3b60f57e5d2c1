#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/hart/HartBytesOf.h"
#include "drivers/hart/HartExchange.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;

const HartFrame kRequest = hartRequest(exampleAddress(), 20);
const HartFrame kAnswer = hartAnswer(kRequest, {0, 0});
const HartFrame kExtended = hartRequest(exampleAddress(), 512);

HartFrame with(HartFrame frame, const HartAddress& address) {
  frame.address = address;
  return frame;
}

HartFrame as(HartFrame frame, HartFrameKind kind) {
  frame.kind = kind;
  return frame;
}

TEST(HartMatch, TakesTheAnswerOfTheStationThatWasAsked) {
  EXPECT_TRUE(isHartAnswer(kAnswer, kRequest));
}

TEST(HartMatch, DoesNotMindTheBurstBit) {
  EXPECT_TRUE(isHartAnswer(with(kAnswer, exampleAddress().withBurst(true)), kRequest));
}

TEST(HartMatch, RefusesAllThatIsNoAnswer) {
  EXPECT_FALSE(isHartAnswer(kRequest, kRequest));
  EXPECT_FALSE(isHartAnswer(as(kAnswer, HartFrameKind::Burst), kRequest));
}

TEST(HartMatch, RefusesAnotherStation) {
  EXPECT_FALSE(isHartAnswer(with(kAnswer, HartAddress::unique(0xE123, 1)), kRequest));
  EXPECT_FALSE(isHartAnswer(with(kAnswer, HartAddress::polling(0)), kRequest));
}

TEST(HartMatch, RefusesAnAnswerToTheOtherMaster) {
  EXPECT_FALSE(isHartAnswer(with(kAnswer, exampleAddress().forMaster(false)), kRequest));
}

TEST(HartMatch, RefusesAnotherCommand) {
  EXPECT_FALSE(isHartAnswer(hartAnswer(hartRequest(exampleAddress(), 21), {0, 0}), kRequest));
}

TEST(HartMatch, ComparesTheNumberOfAnExtendedCommand) {
  EXPECT_TRUE(isHartAnswer(hartAnswer(kExtended, {64, 0}), kExtended));
  EXPECT_FALSE(isHartAnswer(hartAnswer(hartRequest(exampleAddress(), 513), {0, 0}), kExtended));
}

TEST(HartMatch, WantsTheNumberInAllButACommunicationError) {
  HartFrame answer = hartAnswer(kExtended, {0, 0});
  answer.data = {64, 0};
  EXPECT_FALSE(isHartAnswer(answer, kExtended));
  answer.data = {0x88, 0};
  EXPECT_TRUE(isHartAnswer(answer, kExtended));
}

TEST(HartMatch, SaysWhatIsWrongWithAnAnswerToThisMaster) {
  EXPECT_EQ(hartMismatch(with(kAnswer, HartAddress::unique(0xE123, 1)), kRequest),
            "no answer, only one from station A1 23 00 00 01");
  EXPECT_EQ(hartMismatch(hartAnswer(kExtended, {0, 0}), kRequest),
            "no answer, only one to command 512");
  EXPECT_EQ(hartMismatch(with(kAnswer, exampleAddress().forMaster(false)), kRequest), std::nullopt);
  EXPECT_EQ(hartMismatch(kRequest, kRequest), std::nullopt);
}

/// After a frame, with times that tell which one it is.
std::chrono::milliseconds pauseAfter(const HartFrame& frame, bool isBursting = false,
                                     HartDamage damage = HartDamage::None) {
  HartTimings timings;
  timings.linkQuiet = 305ms;
  timings.linkGrant = 75ms;
  return hartPauseAfter({damage, frame}, isBursting, timings);
}

TEST(HartTurn, BelongsToTheOtherMasterForRt2BehindAnOwnAnswer) {
  EXPECT_EQ(pauseAfter(kAnswer), 75ms);
}

TEST(HartTurn, BelongsToOthersForRt1BehindAnOwnAnswerWhileAStationIsBursting) {
  EXPECT_EQ(pauseAfter(kAnswer, true), 305ms);
}

TEST(HartTurn, ComesAtOnceBehindAnAnswerToTheOtherMaster) {
  EXPECT_EQ(pauseAfter(with(kAnswer, exampleAddress().forMaster(false))), 0ms);
}

TEST(HartTurn, ComesRt1BehindARequestOfTheOtherMaster) {
  EXPECT_EQ(pauseAfter(with(kRequest, exampleAddress().forMaster(false))), 305ms);
}

TEST(HartTurn, ComesRt1BehindADamagedFrame) {
  EXPECT_EQ(pauseAfter(kAnswer, false, HartDamage::CheckByte), 305ms);
  EXPECT_EQ(pauseAfter({}, false, HartDamage::BrokenOff), 305ms);
}

TEST(HartTurn, ComesRt1BehindABurstToThisMaster) {
  EXPECT_EQ(pauseAfter(as(kAnswer, HartFrameKind::Burst), true), 305ms);
}

TEST(HartTurn, ComesAtOnceBehindABurstToTheOtherMaster) {
  EXPECT_EQ(pauseAfter(as(with(kAnswer, exampleAddress().forMaster(false)), HartFrameKind::Burst)),
            0ms);
}

}  // namespace
}  // namespace tessara::testing
