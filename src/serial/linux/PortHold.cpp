#include "serial/linux/PortHold.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include "serial/linux/PortErrno.h"

namespace tessara {

namespace {

/// Major device numbers of pseudo-terminals (the kernel's list of devices, "UNIX98 PTY slaves").
constexpr unsigned int firstPtyMajor = 136;
constexpr unsigned int lastPtyMajor = 143;

ExclusiveMark markFor(int descriptor) {
  struct ::stat status {};
  if (::fstat(descriptor, &status) != 0) return ExclusiveMark::Put;
  const unsigned int number = major(status.st_rdev);
  return number >= firstPtyMajor && number <= lastPtyMajor ? ExclusiveMark::NotPut
                                                           : ExclusiveMark::Put;
}

/// True if another program has marked the port; false also where the kernel does not tell.
bool isMarked(int descriptor) {
  int isExclusive = 0;
  return ::ioctl(descriptor, TIOCGEXCL, &isExclusive) == 0 && isExclusive != 0;
}

/// Locks the port, reads its settings and marks it; false with errno set if any of it is refused.
/// The mark keeps out programs that know nothing of flock. Root passes the mark, so the mark is
/// looked at here.
bool take(int descriptor, ExclusiveMark mark, ::termios& found) {
  if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0 || ::tcgetattr(descriptor, &found) != 0) {
    return false;
  }
  if (isMarked(descriptor)) {
    errno = EBUSY;
    return false;
  }
  return mark == ExclusiveMark::NotPut || ::ioctl(descriptor, TIOCEXCL) == 0;
}

}  // namespace

PortHold::PortHold(const std::string& device, std::optional<ExclusiveMark> mark)
    : port_(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
  if (!port_.isOpen()) throw portErrorOf(errno);
  mark_ = mark.value_or(markFor(descriptor()));
  if (!take(descriptor(), mark_, found_)) throw portErrorOf(errno);
}

PortHold::~PortHold() {
  // Each of these fails on a port that has been unplugged, and nothing is left to do then.
  ::tcflush(descriptor(), TCIOFLUSH);
  ::tcsetattr(descriptor(), TCSANOW, &found_);
  if (mark_ == ExclusiveMark::Put) ::ioctl(descriptor(), TIOCNXCL);
  ::flock(descriptor(), LOCK_UN);
}

}  // namespace tessara
