#include "simulator/VirtualPort.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/ioctl.h>
#include <termios.h>

namespace tessara {

namespace {

constexpr std::size_t receiveRoom = 4096;

[[noreturn]] void fail(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), "no virtual port: " + what);
}

FileDescriptor openMaster() {
  FileDescriptor master(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  if (!master.isOpen() || ::grantpt(master.number()) != 0 || ::unlockpt(master.number()) != 0) {
    fail("the system has no pseudo-terminal left");
  }
  return master;
}

std::filesystem::path slaveOf(const FileDescriptor& master) {
  std::array<char, 64> name{};
  const int error = ::ptsname_r(master.number(), name.data(), name.size());
  if (error != 0) {
    errno = error;
    fail("the pseudo-terminal has no name");
  }
  return name.data();
}

/// Not open if a client holds the port exclusively.
FileDescriptor openSlave(const std::filesystem::path& device) {
  return FileDescriptor(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
}

void setUp(const std::filesystem::path& device) {
  const FileDescriptor slave = openSlave(device);
  ::termios settings{};
  if (!slave.isOpen() || ::tcgetattr(slave.number(), &settings) != 0) {
    fail(device.string() + " cannot be opened");
  }
  ::cfmakeraw(&settings);
  ::cfsetspeed(&settings, B19200);
  if (::tcsetattr(slave.number(), TCSANOW, &settings) != 0) {
    fail(device.string() + " cannot be set to raw mode");
  }
}

/// Reports bytes and the last client's leaving once each, where poll() would report the second as
/// long as no client comes.
FileDescriptor eventsOf(const FileDescriptor& master) {
  FileDescriptor events(::epoll_create1(EPOLL_CLOEXEC));
  ::epoll_event interest{EPOLLIN | EPOLLHUP | EPOLLET, {}};
  if (!events.isOpen() ||
      ::epoll_ctl(events.number(), EPOLL_CTL_ADD, master.number(), &interest) != 0) {
    fail("the pseudo-terminal cannot be watched");
  }
  return events;
}

/// What poll() reports at once.
int pollNow(const FileDescriptor& descriptor, short events) {
  ::pollfd waiting{descriptor.number(), events, 0};
  ::poll(&waiting, 1, 0);
  return waiting.revents;
}

}  // namespace

VirtualPort::VirtualPort()
    : master_(openMaster()), device_(slaveOf(master_)), events_(eventsOf(master_)) {
  setUp(device_);
}

bool VirtualPort::isAttended() const {
  return (pollNow(master_, 0) & POLLHUP) == 0;
}

void VirtualPort::settle() {
  ::epoll_event event{};
  ::epoll_wait(events_.number(), &event, 1, 0);
}

void VirtualPort::clearLeavings() {
  if (isClean_ || isAttended()) return;
  const FileDescriptor slave = openSlave(device_);
  ::tcflush(slave.number(), TCIFLUSH);
  isClean_ = true;
}

Bytes VirtualPort::receive() const {
  Bytes received(receiveRoom);
  const ssize_t length = ::read(master_.number(), received.data(), received.size());
  received.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return received;
}

void VirtualPort::send(std::span<const std::uint8_t> bytes) {
  if (!isAttended()) return;
  isClean_ = false;
  while (!bytes.empty()) {
    const ssize_t length = ::write(master_.number(), bytes.data(), bytes.size());
    if (length <= 0) return;
    bytes = bytes.subspan(static_cast<std::size_t>(length));
  }
}

bool VirtualPort::isRead() const {
  if (!isAttended()) return true;
  const FileDescriptor slave = openSlave(device_);
  // poll() first has the kernel bring all bytes to the reader's end, which FIONREAD does not.
  return slave.isOpen() && (pollNow(slave, POLLIN) & POLLIN) == 0;
}

}  // namespace tessara
