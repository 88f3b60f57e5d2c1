// A Modbus answer does not say which request it belongs to: an answer that comes late looks like
// the answer to the next request of the same shape. None may be taken for a fresh one.

#include <chrono>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/ModbusLine.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

constexpr ModbusTimings lateTimings{.answer = 400ms};

Reply at(std::chrono::milliseconds after, std::uint16_t word) {
  return {{after, registersAnswer(192, {word})}};
}

/// Register 1 is answered late, with the word 1; all others at once, with the word 2.
ScriptedSlave::Script lateForRegister1(std::chrono::milliseconds first,
                                       std::chrono::milliseconds second) {
  return [first, second](const Bytes& request, std::size_t index) {
    return request[3] == 1 ? at(index == 0 ? first : second, 1) : at(0ms, 2);
  };
}

TEST(ModbusLateAnswer, InTheInputBeforeARequestIsDiscarded) {
  ModbusLine line(lateForRegister1(0ms, 0ms), lateTimings);
  ASSERT_TRUE(line.connect());
  line.slave.sendUnasked(registersAnswer(192, {9}));
  EXPECT_THAT(line.registers(2, 1), ElementsAre(2));
}

TEST(ModbusLateAnswer, AfterAnAnswerIsDiscarded) {
  const Bytes answer = registersAnswer(192, {1});
  Bytes twice = answer;
  twice.insert(twice.end(), answer.begin(), answer.end());
  ModbusLine line(
      [&](const Bytes&, std::size_t index) {
        return index == 0 ? Reply{{0ms, twice}} : at(0ms, 2);
      },
      lateTimings);
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(1, 1), ElementsAre(1));
  EXPECT_THAT(line.registers(2, 1), ElementsAre(2));
}

TEST(ModbusLateAnswer, ToTheFirstTryServesTheRepeatAndItsTwinIsNotTakenForTheNextAnswer) {
  ModbusLine line(lateForRegister1(600ms, 600ms), lateTimings);
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(1, 1), ElementsAre(1));
  EXPECT_THAT(line.registers(2, 1), ElementsAre(2));
  EXPECT_EQ(line.slave.requests().size(), 3U);
}

TEST(ModbusLateAnswer, OfAModuleThatHandlesOneRequestAfterTheOtherIsNotTakenForTheNext) {
  // The second answer comes as long after the first as the first took.
  ModbusLine line(lateForRegister1(600ms, 800ms), lateTimings);
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(1, 1), ElementsAre(1));
  EXPECT_THAT(line.registers(2, 1), ElementsAre(2));
}

TEST(ModbusLateAnswer, ToAReadThatWasGivenUpIsNotTakenForTheNext) {
  ModbusLine line(lateForRegister1(1000ms, 1000ms), lateTimings);
  ASSERT_TRUE(line.connect());
  EXPECT_NE(errorOf([&] { line.registers(1, 1); }), "");
  EXPECT_THAT(line.registers(2, 1), ElementsAre(2));
  EXPECT_EQ(line.slave.requests().size(), 3U);
}

TEST(ModbusLateAnswer, IsNotTakenForTheNextAfterAReconnectionEither) {
  ModbusLine line(lateForRegister1(1000ms, 1000ms), lateTimings);
  ASSERT_TRUE(line.connect());
  EXPECT_NE(errorOf([&] { line.registers(1, 1); }), "");
  line.driver.CloseSerialConnection();
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(2, 1), ElementsAre(2));
}

TEST(ModbusLateAnswer, AfterAnAnswerFromAnotherAddressIsNotTakenForTheNext) {
  ModbusLine line(
      [](const Bytes&, std::size_t index) {
        return index == 0
                   ? Reply{{0ms, registersAnswer(7, {1})}, {150ms, registersAnswer(192, {1})}}
                   : at(0ms, 2);
      },
      lateTimings);
  ASSERT_TRUE(line.connect());
  EXPECT_NE(errorOf([&] { line.registers(1, 1); }), "");
  EXPECT_THAT(line.registers(2, 1), ElementsAre(2));
}

TEST(ModbusLateAnswer, AfterNoiseIsNotTakenForTheNext) {
  const Bytes noise{0x55, 0x12, 0x34, 0x56, 0x78};
  ModbusLine line(
      [&](const Bytes& request, std::size_t index) {
        if (request[3] != 1) {
          return at(0ms, 2);
        }
        return index == 0 ? Reply{{0ms, noise}, {200ms, registersAnswer(192, {1})}} : at(300ms, 1);
      },
      lateTimings);
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(1, 1), ElementsAre(1));
  EXPECT_THAT(line.registers(2, 1), ElementsAre(2));
}

TEST(ModbusLateAnswer, OnceItHasComeTheNextRequestWaitsNoLonger) {
  // Given up after 4 s, the answers could be awaited for 4 s more; they come at 4.2 s and 4.6 s.
  ModbusLine line(lateForRegister1(4200ms, 2600ms), {.answer = 2s});
  ASSERT_TRUE(line.connect());
  EXPECT_NE(errorOf([&] { line.registers(1, 1); }), "");
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_THAT(line.registers(2, 1), ElementsAre(2));
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 3s);
}

TEST(ModbusLateAnswer, AtAnotherRateIsNotWaitedFor) {
  ModbusLine line(
      [](const Bytes& request, std::size_t) { return request[3] == 1 ? Reply{} : at(0ms, 2); },
      {.answer = 1500ms});
  ASSERT_TRUE(line.connect(19200));
  EXPECT_NE(errorOf([&] { line.registers(1, 1); }), "");
  ASSERT_TRUE(line.connect(115200));
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_THAT(line.registers(2, 1), ElementsAre(2));
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 1500ms);
}

}  // namespace
}  // namespace tessara::testing
