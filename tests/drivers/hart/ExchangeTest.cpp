#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/hart/HartBytesOf.h"
#include "drivers/hart/HartExchange.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;

const HartFrame exchangedRequest = hartRequest(exampleAddress(), 20);
const HartFrame exchangedAnswer = hartAnswer(exchangedRequest, {0, 0});
const HartFrame extendedExchange = hartRequest(exampleAddress(), 512);

HartFrame with(HartFrame frame, const HartAddress& address) {
  frame.address = address;
  return frame;
}

HartFrame as(HartFrame frame, HartFrameKind kind) {
  frame.kind = kind;
  return frame;
}

TEST(HartMatch, AcceptsTheAnswerOfTheModuleThatWasAsked) {
  EXPECT_TRUE(isHartAnswer(exchangedAnswer, exchangedRequest));
}

TEST(HartMatch, IgnoresTheBurstBit) {
  EXPECT_TRUE(
      isHartAnswer(with(exchangedAnswer, exampleAddress().withBurst(true)), exchangedRequest));
}

TEST(HartMatch, RefusesWhatIsNotAnAnswer) {
  EXPECT_FALSE(isHartAnswer(exchangedRequest, exchangedRequest));
  EXPECT_FALSE(isHartAnswer(as(exchangedAnswer, HartFrameKind::Burst), exchangedRequest));
}

TEST(HartMatch, RefusesAnotherAddress) {
  EXPECT_FALSE(
      isHartAnswer(with(exchangedAnswer, HartAddress::unique(0xE123, 1)), exchangedRequest));
  EXPECT_FALSE(isHartAnswer(with(exchangedAnswer, HartAddress::polling(0)), exchangedRequest));
}

TEST(HartMatch, RefusesAnAnswerToTheOtherMaster) {
  EXPECT_FALSE(
      isHartAnswer(with(exchangedAnswer, exampleAddress().forMaster(false)), exchangedRequest));
}

TEST(HartMatch, RefusesAnotherCommand) {
  EXPECT_FALSE(
      isHartAnswer(hartAnswer(hartRequest(exampleAddress(), 21), {0, 0}), exchangedRequest));
}

TEST(HartMatch, ComparesTheNumberOfAnExtendedCommand) {
  EXPECT_TRUE(isHartAnswer(hartAnswer(extendedExchange, {64, 0}), extendedExchange));
  EXPECT_FALSE(
      isHartAnswer(hartAnswer(hartRequest(exampleAddress(), 513), {0, 0}), extendedExchange));
}

TEST(HartMatch, NeedsTheNumberExceptInACommunicationError) {
  HartFrame answer = hartAnswer(extendedExchange, {0, 0});
  answer.data = {64, 0};
  EXPECT_FALSE(isHartAnswer(answer, extendedExchange));
  answer.data = {0x88, 0};
  EXPECT_TRUE(isHartAnswer(answer, extendedExchange));
}

TEST(HartMatch, SaysWhatIsWrongWithAnAnswerToThisMaster) {
  EXPECT_EQ(hartMismatch(with(exchangedAnswer, HartAddress::unique(0xE123, 1)), exchangedRequest),
            "no answer, only one from address A1 23 00 00 01");
  EXPECT_EQ(hartMismatch(hartAnswer(extendedExchange, {0, 0}), exchangedRequest),
            "no answer, only one to command 512");
  EXPECT_EQ(
      hartMismatch(with(exchangedAnswer, exampleAddress().forMaster(false)), exchangedRequest),
      std::nullopt);
  EXPECT_EQ(hartMismatch(exchangedRequest, exchangedRequest), std::nullopt);
}

/// After a frame, with times that tell which one it is.
std::chrono::milliseconds pauseAfter(const HartFrame& frame, bool isBursting = false,
                                     HartDamage damage = HartDamage::None) {
  HartTimings timings;
  timings.linkQuiet = 305ms;
  timings.linkGrant = 75ms;
  return hartPauseAfter({damage, frame}, isBursting, timings);
}

TEST(HartTurn, BelongsToTheOtherMasterForRt2AfterAnOwnAnswer) {
  EXPECT_EQ(pauseAfter(exchangedAnswer), 75ms);
}

TEST(HartTurn, BelongsToOthersForRt1AfterAnOwnAnswerWhileAModuleIsBursting) {
  EXPECT_EQ(pauseAfter(exchangedAnswer, true), 305ms);
}

TEST(HartTurn, ComesAtOnceAfterAnAnswerToTheOtherMaster) {
  EXPECT_EQ(pauseAfter(with(exchangedAnswer, exampleAddress().forMaster(false))), 0ms);
}

TEST(HartTurn, ComesRt1AfterARequestOfTheOtherMaster) {
  EXPECT_EQ(pauseAfter(with(exchangedRequest, exampleAddress().forMaster(false))), 305ms);
}

TEST(HartTurn, ComesRt1AfterADamagedFrame) {
  EXPECT_EQ(pauseAfter(exchangedAnswer, false, HartDamage::CheckByte), 305ms);
  EXPECT_EQ(pauseAfter({}, false, HartDamage::BrokenOff), 305ms);
}

TEST(HartTurn, ComesRt1AfterABurstToThisMaster) {
  EXPECT_EQ(pauseAfter(as(exchangedAnswer, HartFrameKind::Burst), true), 305ms);
}

TEST(HartTurn, ComesAtOnceAfterABurstToTheOtherMaster) {
  EXPECT_EQ(pauseAfter(
                as(with(exchangedAnswer, exampleAddress().forMaster(false)), HartFrameKind::Burst)),
            0ms);
}

}  // namespace
}  // namespace tessara::testing
