#include <cerrno>
#include <csignal>
#include <optional>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "drivers/OtherProcess.h"
#include "drivers/PortLock.h"
#include "drivers/PseudoTerminal.h"

namespace tessara::testing {
namespace {

std::optional<PortProblem> problemWith(const std::string& device,
                                       std::optional<ExclusiveMark> mark = std::nullopt) {
  try {
    const PortLock lock(device, mark);
  } catch (const PortError& error) {
    return error.problem();
  }
  return std::nullopt;
}

TEST(PortLock, OpensAPortForOneOwnerAlone) {
  const PseudoTerminal port;
  const PortLock lock(port.device());
  EXPECT_GE(lock.descriptor(), 0);
  EXPECT_EQ(problemWith(port.device()), PortProblem::InUse);
}

TEST(PortLock, KeepsAnotherProcessOut) {
  const PseudoTerminal port;
  const PortLock lock(port.device());
  EXPECT_EQ(
      inAnotherProcess([&] { return problemWith(port.device()) == PortProblem::InUse ? 0 : 1; }),
      0);
}

TEST(PortLock, GivesThePortFreeAtItsEnd) {
  const PseudoTerminal port;
  { const PortLock lock(port.device()); }
  EXPECT_EQ(problemWith(port.device()), std::nullopt);
}

TEST(PortLock, OfAProgramThatWasKilledIsGone) {
  const PseudoTerminal port;
  ASSERT_EQ(::chmod(port.device().c_str(), 0666), 0);
  EXPECT_EQ(inUnprivilegedProcess([&] {
              const PortLock lock(port.device());
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

TEST(PortLock, MarksThePortAsLongAsItIsHeld) {
  const PseudoTerminal port;
  {
    const PortLock lock(port.device(), ExclusiveMark::EndsWithHolder);
    EXPECT_TRUE(isMarked(port));
  }
  EXPECT_FALSE(isMarked(port));
}

TEST(PortLock, IsRefusedByTheMarkOfAProgramThatLocksNothing) {
  const PseudoTerminal port;
  ASSERT_EQ(::ioctl(port.terminal(), TIOCEXCL), 0);
  EXPECT_EQ(problemWith(port.device(), ExclusiveMark::EndsWithHolder), PortProblem::InUse);
  EXPECT_TRUE(isMarked(port));
  ASSERT_EQ(::ioctl(port.terminal(), TIOCNXCL), 0);
  EXPECT_EQ(problemWith(port.device(), ExclusiveMark::EndsWithHolder), std::nullopt);
}

TEST(PortLock, NeitherMarksAPseudoTerminalNorLooksForAMark) {
  const PseudoTerminal port;
  {
    const PortLock lock(port.device());
    EXPECT_FALSE(isMarked(port));
  }
  ASSERT_EQ(::ioctl(port.terminal(), TIOCEXCL), 0);
  // Root alone gets to a port with a mark.
  EXPECT_EQ(problemWith(port.device()),
            ::geteuid() == 0 ? std::nullopt : std::optional(PortProblem::InUse));
  EXPECT_TRUE(isMarked(port));
}

TEST(PortLock, IsNotInheritedByProgramsThatAreStarted) {
  const PseudoTerminal port;
  const PortLock lock(port.device());
  EXPECT_NE(::fcntl(lock.descriptor(), F_GETFD) & FD_CLOEXEC, 0);
}

TEST(PortLock, LeavesTheSettingsOfAPortInUseAlone) {
  const PseudoTerminal port;
  ASSERT_EQ(::flock(port.terminal(), LOCK_EX), 0);
  const PortSettings before = port.settings();
  EXPECT_EQ(problemWith(port.device()), PortProblem::InUse);
  EXPECT_EQ(port.settings(), before);
}

TEST(PortLock, HandsThePortBackWithTheSettingsThatItHad) {
  const PseudoTerminal port;
  const PortSettings before = port.settings();
  {
    const PortLock lock(port.device());
    ::termios changed{};
    ::tcgetattr(lock.descriptor(), &changed);
    changed.c_cflag |= CSTOPB;
    changed.c_cc[VMIN] = 9;
    ::cfsetspeed(&changed, B300);
    ASSERT_EQ(::tcsetattr(lock.descriptor(), TCSANOW, &changed), 0);
    EXPECT_NE(port.settings(), before);
  }
  EXPECT_EQ(port.settings(), before);
}

TEST(PortLock, SaysThatAPortIsNotThere) {
  EXPECT_EQ(problemWith("/dev/no-such-port"), PortProblem::NotThere);
  EXPECT_EQ(problemWith("/dev/null/port"), PortProblem::NotThere);
}

TEST(PortLock, SaysThatAPortMayNotBeOpened) {
  const PseudoTerminal port;
  ASSERT_EQ(::chmod(port.device().c_str(), 0), 0);
  EXPECT_EQ(inUnprivilegedProcess(
                [&] { return problemWith(port.device()) == PortProblem::NoPermission ? 0 : 1; }),
            0);
}

TEST(PortLock, SaysThatADeviceIsNoSerialPort) {
  EXPECT_EQ(problemWith("/dev/null"), PortProblem::Refused);
  EXPECT_EQ(problemWith("/dev"), PortProblem::Refused);
}

TEST(PortLock, LeaksNoDescriptorWhenAPortIsRefused) {
  const int before = ::dup(0);
  ::close(before);
  EXPECT_EQ(problemWith("/dev/null"), PortProblem::Refused);
  const int after = ::dup(0);
  ::close(after);
  EXPECT_EQ(after, before);
}

TEST(PortError, TellsWhatEachErrnoMeansForAPort) {
  struct Meaning {
    int error;
    PortProblem problem;
    const char* message;
  };
  constexpr auto notThere = "is not there";
  constexpr auto inUse = "is in use by another program";
  constexpr auto noPermission = "cannot be opened: no permission";
  constexpr auto noSerialPort = "is no serial port";
  for (const Meaning& meaning :
       {Meaning{ENOENT, PortProblem::NotThere, notThere},
        Meaning{ENOTDIR, PortProblem::NotThere, notThere},
        Meaning{ENODEV, PortProblem::NotThere, notThere},
        Meaning{ENXIO, PortProblem::NotThere, notThere},
        Meaning{EIO, PortProblem::NotThere, notThere}, Meaning{EBUSY, PortProblem::InUse, inUse},
        Meaning{EWOULDBLOCK, PortProblem::InUse, inUse},
        Meaning{EACCES, PortProblem::NoPermission, noPermission},
        Meaning{EPERM, PortProblem::NoPermission, noPermission},
        Meaning{ENOTTY, PortProblem::Refused, noSerialPort},
        Meaning{EISDIR, PortProblem::Refused, noSerialPort},
        Meaning{EMFILE, PortProblem::Refused, "cannot be opened: Too many open files"}}) {
    const PortError error = PortError::fromErrno(meaning.error);
    EXPECT_EQ(error.problem(), meaning.problem) << meaning.error;
    EXPECT_STREQ(error.what(), meaning.message) << meaning.error;
  }
}

}  // namespace
}  // namespace tessara::testing
