#include "drivers/PortLock.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace tessara {

namespace {

/// Major device numbers of pseudo-terminals (the kernel's list of devices, "UNIX98 PTY slaves").
constexpr unsigned int kFirstPtyMajor = 136;
constexpr unsigned int kLastPtyMajor = 143;

bool isPseudoTerminal(int descriptor) {
  struct ::stat status {};
  if (::fstat(descriptor, &status) != 0) {
    return false;
  }
  const unsigned int number = major(status.st_rdev);
  return number >= kFirstPtyMajor && number <= kLastPtyMajor;
}

/// Takes the lock and reads the settings; false with errno set if either is refused.
bool take(int descriptor, ::termios& found) {
  if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 || ::tcgetattr(descriptor, &found) != 0) {
    return false;
  }
  // TIOCEXCL keeps out the programs that know nothing of flock; flock tells root, whom TIOCEXCL
  // lets pass. A pseudo-terminal keeps the mark until its other end closes: after a crash of this
  // program nobody could open it any more, so it goes without.
  return isPseudoTerminal(descriptor) || ::ioctl(descriptor, TIOCEXCL) == 0;
}

}  // namespace

PortError PortError::fromErrno(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENODEV:
    case ENXIO:
    case EIO:
      return {PortProblem::NotThere, "is not there"};
    case EBUSY:
    case EWOULDBLOCK:
      return {PortProblem::InUse, "is in use by another program"};
    case EACCES:
    case EPERM:
      return {PortProblem::NoPermission, "cannot be opened: no permission"};
    case ENOTTY:
    case EISDIR:
      return {PortProblem::Refused, "is no serial port"};
    default:
      return {PortProblem::Refused, "cannot be opened: " + std::generic_category().message(error)};
  }
}

PortLock::PortLock(const std::string& device)
    : descriptor_(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
  if (descriptor_ < 0) {
    throw PortError::fromErrno(errno);
  }
  if (!take(descriptor_, found_)) {
    const int error = errno;
    ::close(descriptor_);
    throw PortError::fromErrno(error);
  }
}

PortLock::~PortLock() {
  // Each of these fails on a port that has been unplugged, and nothing is left to do then.
  ::tcflush(descriptor_, TCIOFLUSH);
  ::tcsetattr(descriptor_, TCSANOW, &found_);
  ::ioctl(descriptor_, TIOCNXCL);
  ::flock(descriptor_, LOCK_UN);
  ::close(descriptor_);
}

}  // namespace tessara
