#include <thread>

#include <gtest/gtest.h>

#include "control/ModuleWide.h"

namespace tessara {
namespace {

TEST(Threads, EachThreadHasItsOwnPortList) {
  moduleWide().PortCount = 1;
  moduleWide().PortLabels[0] = u"USB Adapter OKT (COM3)";
  std::int32_t countElsewhere = -1;
  std::u16string labelElsewhere = u"?";
  std::thread([&] {
    countElsewhere = moduleWide().PortCount;
    labelElsewhere = moduleWide().PortLabels[0];
    moduleWide().PortCount = 7;
  }).join();
  EXPECT_EQ(countElsewhere, 0);
  EXPECT_EQ(labelElsewhere, u"");
  EXPECT_EQ(moduleWide().PortCount, 1);
}

}  // namespace
}  // namespace tessara
