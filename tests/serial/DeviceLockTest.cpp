#include <optional>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "serial/DeviceLock.h"
#include "serial/OtherProcess.h"
#include "serial/PortError.h"
#include "serial/PseudoTerminal.h"

namespace tessara::testing {
namespace {

std::optional<PortProblem> problemOf(const std::string& device) {
  try {
    const DeviceLock lock(device);
  } catch (const PortError& error) {
    return error.problem();
  }
  return std::nullopt;
}

TEST(DeviceLock, IsHeldByOneOwnerAtATime) {
  const PseudoTerminal device;
  {
    const DeviceLock lock(device.device());
    EXPECT_EQ(problemOf(device.device()), PortProblem::InUse);
  }
  EXPECT_EQ(problemOf(device.device()), std::nullopt);
}

TEST(DeviceLock, SaysThatADeviceIsNotThere) {
  EXPECT_EQ(problemOf("/dev/no-such-device"), PortProblem::NotThere);
}

TEST(DeviceLock, SaysThatADeviceMayNotBeOpened) {
  const PseudoTerminal device;
  ASSERT_EQ(::chmod(device.device().c_str(), 0), 0);
  EXPECT_EQ(inUnprivilegedProcess(
                [&] { return problemOf(device.device()) == PortProblem::NoPermission ? 0 : 1; }),
            0);
}

}  // namespace
}  // namespace tessara::testing
