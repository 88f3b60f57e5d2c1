#include <gtest/gtest.h>

#include "simulator/LineRate.h"
#include "simulator/SerialClient.h"
#include "simulator/VirtualPort.h"

namespace tessara {
namespace {

using testing::SerialClient;

double milliseconds(std::chrono::nanoseconds time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

TEST(LineRate, GivesACharacter11Bits) {
  EXPECT_NEAR(milliseconds(characterTime(1200)), 9.167, 0.001);
  EXPECT_NEAR(milliseconds(characterTime(2400)), 4.583, 0.001);
  EXPECT_NEAR(milliseconds(characterTime(4800)), 2.292, 0.001);
  EXPECT_NEAR(milliseconds(characterTime(9600)), 1.146, 0.001);
  EXPECT_NEAR(milliseconds(characterTime(19200)), 0.573, 0.001);
  EXPECT_NEAR(milliseconds(characterTime(115200)), 0.0955, 0.0001);
}

TEST(LineRate, GivesASilence3AndAHalfCharactersUpTo19200) {
  EXPECT_NEAR(milliseconds(silentTime(1200)), 32.083, 0.001);
  EXPECT_NEAR(milliseconds(silentTime(9600)), 4.010, 0.001);
  EXPECT_NEAR(milliseconds(silentTime(19200)), 2.005, 0.001);
}

TEST(LineRate, GivesAFixedSilenceAbove19200) {
  EXPECT_DOUBLE_EQ(milliseconds(silentTime(19201)), 1.75);
  EXPECT_DOUBLE_EQ(milliseconds(silentTime(115200)), 1.75);
}

TEST(LineRate, IsTheOneThatTheClientSets) {
  const VirtualPort port;
  EXPECT_EQ(port.rate(), kDefaultLineRate);
  const SerialClient fast(port.device().string(), B115200);
  EXPECT_EQ(port.rate(), 115200U);
  const SerialClient slow(port.device().string(), B1200);
  EXPECT_EQ(port.rate(), 1200U);
}

TEST(LineRate, IsTheDefaultWhereThereIsNone) {
  const VirtualPort port;
  const SerialClient hungUp(port.device().string(), B0);
  EXPECT_EQ(port.rate(), kDefaultLineRate);
  EXPECT_EQ(lineRateOf(-1), kDefaultLineRate);
}

}  // namespace
}  // namespace tessara
