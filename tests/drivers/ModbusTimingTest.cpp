#include <algorithm>
#include <chrono>
#include <ctime>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <termios.h>

#include "drivers/ModbusLine.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Ge;

ModbusTimings unhurriedTimings() {
  return {.answer = 20s, .pauses = 20s};
}

class ModbusSilence : public ::testing::TestWithParam<std::int32_t> {};

TEST_P(ModbusSilence, IsKeptBetweenAnAnswerAndTheNextRequest) {
  const std::map<std::int32_t, std::chrono::microseconds> lengths{
      {1200, 32083us}, {2400, 16041us}, {4800, 8020us},   {9600, 4010us},
      {19200, 2005us}, {38400, 1750us}, {115200, 1750us},
  };
  ModbusLine line(always(registersAnswer(192, {1})), unhurriedTimings());
  ASSERT_TRUE(line.connect(GetParam()));
  for (int i = 0; i < 5; ++i) {
    line.registers(4, 1);
  }
  EXPECT_EQ(line.slave.silences().size(), 4U);
  EXPECT_THAT(line.slave.silences(), Each(Ge(lengths.at(GetParam()))));
}

INSTANTIATE_TEST_SUITE_P(BitsPerSecond, ModbusSilence,
                         ::testing::Values(1200, 2400, 4800, 9600, 19200, 38400, 115200));

/// 3.5 characters at 300 bit/s.
constexpr auto silenceAt300 = 128ms;

TEST(ModbusTiming, ALineThatHasBeenQuietLongEnoughIsUsedAtOnce) {
  ModbusLine line(always(registersAnswer(192, {1})), unhurriedTimings());
  ASSERT_TRUE(line.connect(300));
  auto quickest = std::chrono::steady_clock::duration::max();
  // Other programs may slow down some of the reads, but not all.
  for (int i = 0; i < 20 && quickest >= silenceAt300; ++i) {
    line.registers(4, 1);
    std::this_thread::sleep_for(2 * silenceAt300);
    const auto begun = std::chrono::steady_clock::now();
    line.registers(4, 1);
    quickest = std::min(quickest, std::chrono::steady_clock::now() - begun);
  }
  EXPECT_LT(quickest, silenceAt300);
}

TEST(ModbusTiming, WhatComesUnaskedPutsTheNextRequestOff) {
  ModbusLine line(always(registersAnswer(192, {1})), unhurriedTimings());
  ASSERT_TRUE(line.connect(300));
  std::this_thread::sleep_for(2 * silenceAt300);
  line.slave.sendUnasked({0x55});
  const auto begun = std::chrono::steady_clock::now();
  line.registers(4, 1);
  EXPECT_GE(std::chrono::steady_clock::now() - begun, silenceAt300);
}

TEST(ModbusTiming, ALineThatIsNeverQuietIsGivenUp) {
  // After the damaged answer the link waits until the line settles.
  ModbusLine line(always({192, 4, 2, 0, 0, 0, 0}), {.settling = 20s, .noise = 200ms});
  ASSERT_TRUE(line.connect());
  line.slave.makeNoise();
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: the line does not fall quiet");
}

TEST(ModbusTiming, APortThatTakesNoCharactersIsAnError) {
  ModbusLine line(always({}), {.answer = 100ms});
  ASSERT_TRUE(line.connect());
  // As if the other side had stopped the line.
  ASSERT_EQ(::tcflow(line.slave.terminal(), TCOOFF), 0);
  const std::string message = errorOf([&] { line.registers(4, 1); });
  ASSERT_EQ(::tcflow(line.slave.terminal(), TCOON), 0);
  EXPECT_EQ(message,
            line.port() + ", input register 4 at address 192: the port takes no characters");
}

TEST(ModbusTiming, AnUnpluggedPortEndsTheWaitAtOnce) {
  ModbusLine line(inTurn({{{50ms, {}, true}}}), unhurriedTimings());
  ASSERT_TRUE(line.connect());
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: the port has gone");
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 10s);
  EXPECT_EQ(line.slave.requests().size(), 1U);
}

TEST(ModbusTiming, APortUnpluggedInTheMiddleOfAnAnswerHasGone) {
  ModbusLine line(inTurn({{{0ms, {192, 4, 2}}, {50ms, {}, true}}}), unhurriedTimings());
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: the port has gone");
}

TEST(ModbusTiming, EveryReadFromAnUnpluggedPortFailsAndCostsNoTime) {
  ModbusLine line(always({}));
  ASSERT_TRUE(line.connect());
  line.slave.unplug();
  const std::clock_t begun = std::clock();
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(errorOf([&] { line.identification(); }),
              line.port() + ", identification at address 192: the port has gone");
  }
  EXPECT_LT(std::clock() - begun, CLOCKS_PER_SEC);
  line.driver.CloseSerialConnection();
}

TEST(ModbusTiming, APortThatIsBackCanBeUsedAgain) {
  ModbusLine line(inTurn({{{0ms, {}, true}}}), unhurriedTimings());
  ASSERT_TRUE(line.connect());
  EXPECT_NE(errorOf([&] { line.registers(4, 1); }), "");
  line.driver.CloseSerialConnection();
  EXPECT_FALSE(line.connect());
  EXPECT_EQ(line.driver.connectFailure(), line.port() + " is not there");

  const ScriptedSlave back(always(registersAnswer(192, {8})));
  line.ports.put(3, back.device());
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(4, 1), ElementsAre(8));
}

}  // namespace
}  // namespace tessara::testing
