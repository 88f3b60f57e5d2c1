#include <gtest/gtest.h>

#include "simulator/LineRate.h"
#include "simulator/SerialClient.h"
#include "simulator/VirtualPort.h"

namespace tessara {
namespace {

using testing::SerialClient;

TEST(LineRate, IsTheOneThatTheClientSets) {
  const VirtualPort port;
  EXPECT_EQ(port.rate(), defaultLineRate);
  const SerialClient fast(port.device().string(), B115200);
  EXPECT_EQ(port.rate(), 115200U);
  const SerialClient slow(port.device().string(), B1200);
  EXPECT_EQ(port.rate(), 1200U);
}

TEST(LineRate, IsTheDefaultWhereThereIsNone) {
  const VirtualPort port;
  const SerialClient hungUp(port.device().string(), B0);
  EXPECT_EQ(port.rate(), defaultLineRate);
  EXPECT_EQ(lineRateOf(-1), defaultLineRate);
}

}  // namespace
}  // namespace tessara
