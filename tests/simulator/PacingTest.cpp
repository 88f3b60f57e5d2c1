#include <chrono>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "serial/LineTiming.h"
#include "simulator/LineRate.h"
#include "simulator/SampleModule.h"
#include "simulator/SerialClient.h"
#include "simulator/SimulatedPort.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using namespace tessara::testing;
using Clock = std::chrono::steady_clock;
using ::testing::SizeIs;

constexpr std::size_t readRequestLength = 8;
constexpr std::size_t wordCount = 100;
constexpr std::size_t longAnswerLength = 3 + 2 * wordCount + 2;

SimulatedModule moduleWithManyRegisters() {
  SimulatedModule module = sampleModule();
  for (std::uint16_t number = 1000; number < 1000 + wordCount; ++number)
    module.registers[number] = 0;
  return module;
}

Bytes longRequest() {
  return readRequest(1000, wordCount);
}

/// The time from the first character of the request to the last one of the answer.
std::chrono::nanoseconds wireTime(LineRate rate, std::size_t answerLength) {
  return characterTime(rate) * (readRequestLength + answerLength) + silentTime(rate);
}

Clock::duration timeOf(const SerialClient& client, const Bytes& request, std::size_t answerLength) {
  const auto start = Clock::now();
  EXPECT_THAT(client.exchange(request, answerLength), SizeIs(answerLength));
  return Clock::now() - start;
}

/// The best of several tries, since other programs may slow some of them down.
Clock::duration bestTime(const SerialClient& client, std::size_t tries) {
  auto best = Clock::duration::max();
  for (std::size_t count = 0; count < tries; ++count) {
    best = std::min(best, timeOf(client, longRequest(), longAnswerLength));
  }
  return best;
}

TEST(Pacing, TakesTheTimeOfTheWireAndHardlyMore) {
  const SimulatedPort port(moduleWithManyRegisters(), {.paced = true});
  for (const auto& [speed, rate] :
       {std::pair<::speed_t, LineRate>{B19200, 19200}, {B115200, 115200}}) {
    const SerialClient client(port.device(), speed);
    const auto taken = bestTime(client, 5);
    EXPECT_GE(taken, wireTime(rate, longAnswerLength)) << rate;
    EXPECT_LE(taken, 2 * wireTime(rate, longAnswerLength)) << rate;
  }
}

TEST(Pacing, IsOffByDefault) {
  const SimulatedPort port(moduleWithManyRegisters());
  const SerialClient client(port.device(), B1200);
  EXPECT_LT(timeOf(client, longRequest(), longAnswerLength), wireTime(1200, longAnswerLength) / 2);
}

TEST(Pacing, BeginsTheAnswerAfterTheRequestAndTheSilence) {
  const SimulatedPort port(sampleModule(), {.paced = true});
  const SerialClient client(port.device(), B1200);
  const auto earliest = characterTime(1200) * (readRequestLength + 1) + silentTime(1200);
  EXPECT_GE(timeOf(client, readRequest(4, 1), 1), earliest);
}

TEST(Pacing, CountsTheCharactersOfARequestInPieces) {
  const SimulatedPort port(sampleModule(), {.paced = true});
  const SerialClient client(port.device(), B1200);
  const auto start = Clock::now();
  for (const std::uint8_t byte : readRequest(4, 1)) client.send({byte});
  EXPECT_THAT(client.receive(7), SizeIs(7));
  EXPECT_GE(Clock::now() - start, wireTime(1200, 7));
}

TEST(Pacing, DeliversTheAnswerCharacterByCharacter) {
  const SimulatedPort port(moduleWithManyRegisters(), {.paced = true});
  const SerialClient client(port.device(), B1200);
  client.send(longRequest());
  ASSERT_THAT(client.receive(1), SizeIs(1));
  const auto first = Clock::now();
  ASSERT_THAT(client.receive(longAnswerLength / 2), SizeIs(longAnswerLength / 2));
  const auto middle = Clock::now();
  ASSERT_THAT(client.receive(longAnswerLength - 1 - longAnswerLength / 2),
              SizeIs(longAnswerLength / 2));
  const auto last = Clock::now();
  // Each may have been a little late, but the halves cannot have come together.
  EXPECT_GT(middle - first, characterTime(1200) * (longAnswerLength / 4));
  EXPECT_GT(last - middle, characterTime(1200) * (longAnswerLength / 4));
}

TEST(Pacing, AddsTheDelayOfALateReply) {
  SimulatedPort port(sampleModule(), {.paced = true});
  port.setFaults({{faults::LateReply{100ms}, faults::At{1}}});
  const SerialClient client(port.device(), B9600);
  EXPECT_GE(timeOf(client, readRequest(4, 1), 7), wireTime(9600, 7) + 100ms);
}

TEST(Pacing, SendsOneAnswerAfterTheOther) {
  const SimulatedPort port(sampleModule(), {.paced = true});
  const SerialClient client(port.device(), B1200);
  const auto start = Clock::now();
  client.send(readRequest(4, 1));
  client.send(readRequest(4, 1));
  const Bytes both = client.receive(14);
  EXPECT_EQ(Bytes(both.begin(), both.begin() + 7), firmwareAnswer());
  EXPECT_EQ(Bytes(both.begin() + 7, both.end()), firmwareAnswer());
  EXPECT_GE(Clock::now() - start,
            characterTime(1200) * (readRequestLength + 14) + silentTime(1200));
}

TEST(Pacing, UnplugsWhenTheLastCharacterHasCome) {
  SimulatedPort port(sampleModule(), {.paced = true});
  port.setFaults({{faults::Unplug{}, faults::At{1}}});
  const SerialClient client(port.device(), B1200);
  EXPECT_EQ(client.exchange(readRequest(4, 1), 7), firmwareAnswer());
  EXPECT_TRUE(client.isHungUp());
}

}  // namespace
}  // namespace tessara
