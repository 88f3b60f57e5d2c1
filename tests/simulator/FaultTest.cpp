#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/Fault.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const MasterRequest sampleRequest{0xC0, 0x04, {0, 4, 0, 1}};
const Bytes soundAnswer = modbusFrame(0xC0, 0x04, Bytes{2, 0x12, 0x34});

SimulatedAnswer spoilt(std::vector<FaultEffect> effects) {
  std::vector<Fault> faults;
  faults.reserve(effects.size());
  for (FaultEffect& effect : effects) faults.push_back({std::move(effect), faults::At{1}});
  return FaultPlan(std::move(faults)).spoil(sampleRequest, soundAnswer);
}

/// Which of the first `count` requests the trigger falls on, counted from 1.
std::vector<int> hits(FaultTrigger trigger, int count) {
  FaultPlan plan({{faults::NoReply{}, trigger}});
  std::vector<int> hits;
  for (int request = 1; request <= count; ++request) {
    if (plan.spoil(sampleRequest, soundAnswer).bytes.empty()) hits.push_back(request);
  }
  return hits;
}

TEST(FaultPlan, WithoutFaultsLeavesTheAnswerUnchanged) {
  const SimulatedAnswer answer = FaultPlan().spoil(sampleRequest, soundAnswer);
  EXPECT_EQ(answer.bytes, soundAnswer);
  EXPECT_EQ(answer.delay, 0ms);
  EXPECT_FALSE(answer.unplug);
}

TEST(FaultPlan, NoReplySendsNothing) {
  EXPECT_THAT(spoilt({faults::NoReply{}}).bytes, IsEmpty());
}

TEST(FaultPlan, LateReplySendsTheSameLater) {
  const SimulatedAnswer answer = spoilt({faults::LateReply{300ms}});
  EXPECT_EQ(answer.bytes, soundAnswer);
  EXPECT_EQ(answer.delay, 300ms);
}

TEST(FaultPlan, BadChecksumChangesOnlyTheChecksum) {
  const SimulatedAnswer answer = spoilt({faults::BadChecksum{}});
  EXPECT_FALSE(decodeModbusRequest(answer.bytes));
  EXPECT_EQ(withModbusCrc(Bytes(answer.bytes.begin(), answer.bytes.end() - 2)), soundAnswer);
}

TEST(FaultPlan, WrongAddressHasARightChecksum) {
  EXPECT_EQ(spoilt({faults::WrongAddress{0xC1}}).bytes,
            modbusFrame(0xC1, 0x04, Bytes{2, 0x12, 0x34}));
}

TEST(FaultPlan, ExceptionReplyRefusesWithTheCode) {
  EXPECT_EQ(spoilt({faults::ExceptionReply{6}}).bytes, modbusExceptionFrame(0xC0, 0x04, 6));
}

TEST(FaultPlan, CutOffSendsTheBeginning) {
  EXPECT_THAT(spoilt({faults::CutOff{3}}).bytes, ElementsAre(0xC0, 0x04, 0x02));
  EXPECT_EQ(spoilt({faults::CutOff{200}}).bytes, soundAnswer);
}

TEST(FaultPlan, NoisePrecedesTheAnswer) {
  EXPECT_THAT(spoilt({faults::Noise{{0x00, 0xFF}}, faults::CutOff{2}}).bytes,
              ElementsAre(0x00, 0xFF, 0xC0, 0x04));
}

TEST(FaultPlan, EchoSendsTheRequestBeforeTheAnswer) {
  Bytes expected = modbusFrame(0xC0, 0x04, Bytes{0, 4, 0, 1});
  expected.insert(expected.end(), soundAnswer.begin(), soundAnswer.end());
  EXPECT_EQ(spoilt({faults::Echo{}}).bytes, expected);
}

TEST(FaultPlan, UnplugSendsAsManyBytesAsOrdered) {
  const SimulatedAnswer whole = spoilt({faults::Unplug{}});
  EXPECT_EQ(whole.bytes, soundAnswer);
  ASSERT_TRUE(whole.unplug);
  EXPECT_FALSE(whole.unplug->replugAfter);

  const SimulatedAnswer part = spoilt({faults::Unplug{2, 50ms}});
  EXPECT_THAT(part.bytes, ElementsAre(0xC0, 0x04));
  ASSERT_TRUE(part.unplug);
  EXPECT_EQ(part.unplug->replugAfter, 50ms);

  EXPECT_THAT(spoilt({faults::Unplug{0, {}}}).bytes, IsEmpty());
}

TEST(FaultPlan, AppliesSeveralFaultsFromTheContentsToTheTiming) {
  const SimulatedAnswer answer =
      spoilt({faults::LateReply{10ms}, faults::Noise{{0x55}}, faults::CutOff{2},
              faults::ExceptionReply{4}, faults::LateReply{20ms}, faults::WrongAddress{7}});
  EXPECT_THAT(answer.bytes, ElementsAre(0x55, 7, 0x84));
  EXPECT_EQ(answer.delay, 30ms);
}

TEST(FaultTrigger, AtFallsOnOneRequest) {
  EXPECT_THAT(hits(faults::At{3}, 10), ElementsAre(3));
}

TEST(FaultTrigger, EveryFallsOnEachNth) {
  EXPECT_THAT(hits(faults::Every{3}, 10), ElementsAre(3, 6, 9));
  EXPECT_THAT(hits(faults::Every{1}, 3), ElementsAre(1, 2, 3));
}

TEST(FaultTrigger, ByChanceIsTheSameForTheSameSeed) {
  const auto once = hits(faults::ByChance{0.5, 7}, 200);
  EXPECT_EQ(once, hits(faults::ByChance{0.5, 7}, 200));
  EXPECT_NE(once, hits(faults::ByChance{0.5, 8}, 200));
}

TEST(FaultTrigger, ByChanceFallsAsOftenAsOrdered) {
  EXPECT_THAT(hits(faults::ByChance{0, 1}, 1000), IsEmpty());
  EXPECT_EQ(hits(faults::ByChance{1, 1}, 1000).size(), 1000U);
  const auto tenth = hits(faults::ByChance{0.1, 1}, 10000).size();
  EXPECT_GT(tenth, 800U);
  EXPECT_LT(tenth, 1200U);
}

TEST(FaultTrigger, OfOneFaultDoesNotAffectAnother) {
  const faults::ByChance trigger{0.3, 5};
  FaultPlan plan({{faults::Noise{{0}}, faults::ByChance{0.5, 9}}, {faults::NoReply{}, trigger}});
  std::vector<int> seen;
  for (int request = 1; request <= 100; ++request) {
    if (plan.spoil(sampleRequest, soundAnswer).bytes.empty()) seen.push_back(request);
  }
  EXPECT_EQ(seen, hits(trigger, 100));
}

TEST(CheckFault, RefusesImpossibleFaults) {
  const FaultTrigger first = faults::At{1};
  EXPECT_NO_THROW(checkFault({faults::Echo{}, first}));
  EXPECT_THROW(checkFault({faults::Echo{}, faults::At{0}}), std::invalid_argument);
  EXPECT_THROW(checkFault({faults::Echo{}, faults::Every{0}}), std::invalid_argument);
  EXPECT_THROW(checkFault({faults::Echo{}, faults::ByChance{1.5, 1}}), std::invalid_argument);
  EXPECT_THROW(checkFault({faults::Echo{}, faults::ByChance{-0.1, 1}}), std::invalid_argument);
  EXPECT_THROW(checkFault({faults::ExceptionReply{0}, first}), std::invalid_argument);
  EXPECT_THROW(checkFault({faults::CutOff{0}, first}), std::invalid_argument);
  EXPECT_THROW(checkFault({faults::Noise{}, first}), std::invalid_argument);
  EXPECT_THROW(FaultPlan({{faults::Noise{}, first}}), std::invalid_argument);
}

}  // namespace
}  // namespace tessara
