#include <array>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include "linux/ports/PortState.h"
#include "serial/linux/PortHold.h"

namespace tessara {
namespace {

/// A pseudo-terminal; its slave stands for a serial port.
class PortStateTest : public ::testing::Test {
 protected:
  PortStateTest() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    EXPECT_EQ(::grantpt(master_), 0);
    EXPECT_EQ(::unlockpt(master_), 0);
    std::array<char, 64> name{};
    EXPECT_EQ(::ptsname_r(master_, name.data(), name.size()), 0);
    node = name.data();
  }
  ~PortStateTest() override { ::close(master_); }

  [[nodiscard]] int master() const { return master_; }

  std::string node;

 private:
  int master_;
};

/// Gives up the rights of root for as long as it lives; does nothing for other users.
class Unprivileged {
 public:
  Unprivileged() : before_(::geteuid()) {
    if (before_ == 0) {
      EXPECT_EQ(::seteuid(nobody), 0);
    }
  }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;
  ~Unprivileged() { EXPECT_EQ(::seteuid(before_), 0); }

 private:
  static constexpr ::uid_t nobody = 65534;
  ::uid_t before_;
};

TEST_F(PortStateTest, APortThatNobodyHoldsIsFree) {
  EXPECT_EQ(portState(node), PortState::Free);
  EXPECT_EQ(portState(node), PortState::Free);
}

TEST_F(PortStateTest, APortThatIsHeldIsInUseUntilItIsReleased) {
  {
    const PortHold holder(node);
    EXPECT_EQ(portState(node), PortState::InUse);
  }
  EXPECT_EQ(portState(node), PortState::Free);
}

TEST_F(PortStateTest, APortInUseIsNotDisturbed) {
  const PortHold holder(node);
  ::termios raw{};
  ASSERT_EQ(::tcgetattr(holder.descriptor(), &raw), 0);
  ::cfmakeraw(&raw);
  ::cfsetspeed(&raw, B115200);
  ASSERT_EQ(::tcsetattr(holder.descriptor(), TCSANOW, &raw), 0);
  ASSERT_EQ(::write(master(), "data", 4), 4);

  EXPECT_EQ(portState(node), PortState::InUse);

  ::termios after{};
  ASSERT_EQ(::tcgetattr(holder.descriptor(), &after), 0);
  EXPECT_EQ(::cfgetospeed(&after), ::speed_t{B115200});
  EXPECT_EQ(after.c_lflag, raw.c_lflag);
  std::array<char, 8> bytes{};
  ::pollfd arrival{holder.descriptor(), POLLIN, 0};
  ASSERT_EQ(::poll(&arrival, 1, 10000), 1);
  EXPECT_EQ(::read(holder.descriptor(), bytes.data(), bytes.size()), 4);
}

TEST_F(PortStateTest, APortThatTheUserMayNotOpenIsDenied) {
  ASSERT_EQ(::chmod(node.c_str(), 0), 0);
  const Unprivileged user;
  EXPECT_EQ(portState(node), PortState::Denied);
}

TEST(PortState, ADeviceThatIsNotThereIsAbsent) {
  EXPECT_EQ(portState("/dev/no such device"), PortState::Absent);
}

TEST(PortState, ADeviceThatIsNoTerminalIsNoPort) {
  EXPECT_EQ(portState("/dev/null"), PortState::NoPort);
}

TEST(PortState, HasATextForEachState) {
  EXPECT_EQ(portStateText(PortState::Free), "free");
  EXPECT_EQ(portStateText(PortState::InUse), "in use");
  EXPECT_EQ(portStateText(PortState::Denied), "denied");
  EXPECT_EQ(portStateText(PortState::Absent), "absent");
  EXPECT_EQ(portStateText(PortState::NoPort), "no serial port");
}

}  // namespace
}  // namespace tessara
