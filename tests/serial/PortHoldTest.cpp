#include <cerrno>
#include <csignal>
#include <optional>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "serial/OtherProcess.h"
#include "serial/PseudoTerminal.h"
#include "serial/linux/PortErrno.h"
#include "serial/linux/PortHold.h"

namespace tessara::testing {
namespace {

std::optional<PortProblem> problemWith(const std::string& device,
                                       std::optional<ExclusiveMark> mark = std::nullopt) {
  try {
    const PortHold hold(device, mark);
  } catch (const PortError& error) {
    return error.problem();
  }
  return std::nullopt;
}

TEST(PortHold, OpensAPortForOneOwnerAlone) {
  const PseudoTerminal port;
  const PortHold hold(port.device());
  EXPECT_GE(hold.descriptor(), 0);
  EXPECT_EQ(problemWith(port.device()), PortProblem::InUse);
}

TEST(PortHold, KeepsAnotherProcessOut) {
  const PseudoTerminal port;
  const PortHold hold(port.device());
  EXPECT_EQ(
      inAnotherProcess([&] { return problemWith(port.device()) == PortProblem::InUse ? 0 : 1; }),
      0);
}

TEST(PortHold, ReleasesThePortAtItsEnd) {
  const PseudoTerminal port;
  { const PortHold hold(port.device()); }
  EXPECT_EQ(problemWith(port.device()), std::nullopt);
}

TEST(PortHold, OfAKilledProgramIsGone) {
  const PseudoTerminal port;
  ASSERT_EQ(::chmod(port.device().c_str(), 0666), 0);
  EXPECT_EQ(inUnprivilegedProcess([&] {
              const PortHold hold(port.device());
              return ::raise(SIGKILL);
            }),
            -SIGKILL);
  EXPECT_EQ(inUnprivilegedProcess([&] { return problemWith(port.device()) ? 1 : 0; }), 0);
}

bool isMarked(const PseudoTerminal& port) {
  int isExclusive = 0;
  EXPECT_EQ(::ioctl(port.terminal(), TIOCGEXCL, &isExclusive), 0);
  return isExclusive != 0;
}

TEST(PortHold, MarksThePortAsLongAsItIsHeld) {
  const PseudoTerminal port;
  {
    const PortHold hold(port.device(), ExclusiveMark::Put);
    EXPECT_TRUE(isMarked(port));
  }
  EXPECT_FALSE(isMarked(port));
}

TEST(PortHold, IsRefusedByTheMarkOfAProgramThatLocksNothing) {
  const PseudoTerminal port;
  ASSERT_EQ(::ioctl(port.terminal(), TIOCEXCL), 0);
  EXPECT_EQ(problemWith(port.device(), ExclusiveMark::Put), PortProblem::InUse);
  EXPECT_TRUE(isMarked(port));
  ASSERT_EQ(::ioctl(port.terminal(), TIOCNXCL), 0);
  EXPECT_EQ(problemWith(port.device(), ExclusiveMark::Put), std::nullopt);
}

TEST(PortHold, DoesNotMarkAPseudoTerminal) {
  const PseudoTerminal port;
  const PortHold hold(port.device());
  EXPECT_FALSE(isMarked(port));
}

TEST(PortHold, TakesAMarkOnAPseudoTerminalForAUserForRootToo) {
  const PseudoTerminal port;
  ASSERT_EQ(::ioctl(port.terminal(), TIOCEXCL), 0);
  EXPECT_EQ(problemWith(port.device()), PortProblem::InUse);
  EXPECT_TRUE(isMarked(port));
}

TEST(PortHold, IsNotInheritedByProgramsThatAreStarted) {
  const PseudoTerminal port;
  const PortHold hold(port.device());
  EXPECT_NE(::fcntl(hold.descriptor(), F_GETFD) & FD_CLOEXEC, 0);
}

TEST(PortHold, LeavesTheSettingsOfAPortInUseAlone) {
  const PseudoTerminal port;
  ASSERT_EQ(::flock(port.terminal(), LOCK_EX), 0);
  const PortSettings before = port.settings();
  EXPECT_EQ(problemWith(port.device()), PortProblem::InUse);
  EXPECT_EQ(port.settings(), before);
}

TEST(PortHold, HandsThePortBackWithTheSettingsThatItHad) {
  const PseudoTerminal port;
  const PortSettings before = port.settings();
  {
    const PortHold hold(port.device());
    ::termios changed{};
    ::tcgetattr(hold.descriptor(), &changed);
    changed.c_cflag |= CSTOPB;
    changed.c_cc[VMIN] = 9;
    ::cfsetspeed(&changed, B300);
    ASSERT_EQ(::tcsetattr(hold.descriptor(), TCSANOW, &changed), 0);
    EXPECT_NE(port.settings(), before);
  }
  EXPECT_EQ(port.settings(), before);
}

TEST(PortHold, SaysThatAPortIsNotThere) {
  EXPECT_EQ(problemWith("/dev/no-such-port"), PortProblem::NotThere);
  EXPECT_EQ(problemWith("/dev/null/port"), PortProblem::NotThere);
}

TEST(PortHold, SaysThatAPortMayNotBeOpened) {
  const PseudoTerminal port;
  ASSERT_EQ(::chmod(port.device().c_str(), 0), 0);
  EXPECT_EQ(inUnprivilegedProcess(
                [&] { return problemWith(port.device()) == PortProblem::NoPermission ? 0 : 1; }),
            0);
}

TEST(PortHold, SaysThatADeviceIsNotASerialPort) {
  EXPECT_EQ(problemWith("/dev/null"), PortProblem::Refused);
  EXPECT_EQ(problemWith("/dev"), PortProblem::Refused);
}

TEST(PortHold, LeaksNoDescriptorWhenAPortIsRefused) {
  const int before = ::dup(0);
  ::close(before);
  EXPECT_EQ(problemWith("/dev/null"), PortProblem::Refused);
  const int after = ::dup(0);
  ::close(after);
  EXPECT_EQ(after, before);
}

TEST(PortError, HasAMeaningForEachErrno) {
  struct Meaning {
    int error;
    PortProblem problem;
    const char* message;
  };
  constexpr auto notThere = "is not there";
  constexpr auto inUse = "is in use by another program";
  constexpr auto noPermission = "cannot be opened: no permission";
  constexpr auto notASerialPort = "is not a serial port";
  for (const Meaning& meaning :
       {Meaning{ENOENT, PortProblem::NotThere, notThere},
        Meaning{ENOTDIR, PortProblem::NotThere, notThere},
        Meaning{ENODEV, PortProblem::NotThere, notThere},
        Meaning{ENXIO, PortProblem::NotThere, notThere},
        Meaning{EIO, PortProblem::NotThere, notThere}, Meaning{EBUSY, PortProblem::InUse, inUse},
        Meaning{EWOULDBLOCK, PortProblem::InUse, inUse},
        Meaning{EACCES, PortProblem::NoPermission, noPermission},
        Meaning{EPERM, PortProblem::NoPermission, noPermission},
        Meaning{ENOTTY, PortProblem::Refused, notASerialPort},
        Meaning{EISDIR, PortProblem::Refused, notASerialPort},
        Meaning{EMFILE, PortProblem::Refused, "cannot be opened: Too many open files"}}) {
    const PortError error = portErrorOf(meaning.error);
    EXPECT_EQ(error.problem(), meaning.problem) << meaning.error;
    EXPECT_STREQ(error.what(), meaning.message) << meaning.error;
  }
}

}  // namespace
}  // namespace tessara::testing
