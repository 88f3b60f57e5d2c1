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

ExclusiveMark markOf(int descriptor) {
  struct ::stat status {};
  if (::fstat(descriptor, &status) != 0) {
    return ExclusiveMark::EndsWithHolder;
  }
  const unsigned int number = major(status.st_rdev);
  return number >= kFirstPtyMajor && number <= kLastPtyMajor ? ExclusiveMark::OutlivesHolder
                                                             : ExclusiveMark::EndsWithHolder;
}

/// True if another program has marked the port; false also where the kernel does not tell.
bool isMarked(int descriptor) {
  int isExclusive = 0;
  return ::ioctl(descriptor, TIOCGEXCL, &isExclusive) == 0 && isExclusive != 0;
}

/// Marks the port if nobody else has; false with errno set if the port cannot be had.
bool putMark(int descriptor) {
  if (isMarked(descriptor)) {
    errno = EBUSY;
    return false;
  }
  return ::ioctl(descriptor, TIOCEXCL) == 0;
}

/// Takes the lock and reads the settings; false with errno set if either is refused. The mark keeps
/// out the programs that know nothing of flock; flock tells root, whom the mark lets pass.
bool take(int descriptor, ExclusiveMark mark, ::termios& found) {
  return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0 && ::tcgetattr(descriptor, &found) == 0 &&
         (mark == ExclusiveMark::OutlivesHolder || putMark(descriptor));
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

PortLock::PortLock(const std::string& device, std::optional<ExclusiveMark> mark)
    : descriptor_(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
  if (descriptor_ < 0) {
    throw PortError::fromErrno(errno);
  }
  mark_ = mark.value_or(markOf(descriptor_));
  if (!take(descriptor_, mark_, found_)) {
    const int error = errno;
    ::close(descriptor_);
    throw PortError::fromErrno(error);
  }
}

PortLock::~PortLock() {
  // Each of these fails on a port that has been unplugged, and nothing is left to do then.
  ::tcflush(descriptor_, TCIOFLUSH);
  ::tcsetattr(descriptor_, TCSANOW, &found_);
  if (mark_ == ExclusiveMark::EndsWithHolder) ::ioctl(descriptor_, TIOCNXCL);
  ::flock(descriptor_, LOCK_UN);
  ::close(descriptor_);
}

}  // namespace tessara
