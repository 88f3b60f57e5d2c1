#include <gtest/gtest.h>

#include "serial/LineSettings.h"
#include "serial/LineTiming.h"

namespace tessara {
namespace {

double milliseconds(std::chrono::nanoseconds time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

TEST(LineTiming, GivesACharacter11Bits) {
  EXPECT_NEAR(milliseconds(characterTime(1200)), 9.167, 0.001);
  EXPECT_NEAR(milliseconds(characterTime(2400)), 4.583, 0.001);
  EXPECT_NEAR(milliseconds(characterTime(4800)), 2.292, 0.001);
  EXPECT_NEAR(milliseconds(characterTime(9600)), 1.146, 0.001);
  EXPECT_NEAR(milliseconds(characterTime(19200)), 0.573, 0.001);
  EXPECT_NEAR(milliseconds(characterTime(115200)), 0.0955, 0.0001);
}

TEST(LineTiming, GivesASilence3AndAHalfCharactersUpTo19200) {
  EXPECT_NEAR(milliseconds(silentTime(1200)), 32.083, 0.001);
  EXPECT_NEAR(milliseconds(silentTime(9600)), 4.010, 0.001);
  EXPECT_NEAR(milliseconds(silentTime(19200)), 2.005, 0.001);
}

TEST(LineTiming, GivesAFixedSilenceAbove19200) {
  EXPECT_DOUBLE_EQ(milliseconds(silentTime(19201)), 1.75);
  EXPECT_DOUBLE_EQ(milliseconds(silentTime(115200)), 1.75);
}

TEST(LineTiming, AcceptsARateThatIsUpTo2PercentOff) {
  EXPECT_TRUE(isNearRate(14400, 14400));
  EXPECT_TRUE(isNearRate(14400, 14688));
  EXPECT_FALSE(isNearRate(14400, 14689));
  EXPECT_TRUE(isNearRate(14400, 14112));
  EXPECT_FALSE(isNearRate(14400, 14111));
  EXPECT_FALSE(isNearRate(56000, 57600));
  EXPECT_FALSE(isNearRate(14400, 0));
}

}  // namespace
}  // namespace tessara
