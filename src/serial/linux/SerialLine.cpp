#include "serial/SerialLine.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "serial/LineError.h"
#include "serial/linux/FileDescriptor.h"
#include "serial/linux/PortErrno.h"
#include "serial/linux/PortHold.h"
#include "serial/linux/TerminalSettings.h"

namespace tessara {

using namespace std::chrono_literals;

namespace {

/// Between two looks at the output that is still pending.
constexpr auto drainStep = 1ms;

/// As much input is discarded at a time: a device that sends without end must not hold the caller.
constexpr std::size_t maxDiscarded = 65536;

::timespec timeUntil(SerialLine::Clock::time_point deadline) {
  const std::chrono::nanoseconds left =
      std::max<SerialLine::Clock::duration>(deadline - SerialLine::Clock::now(), 0ns);
  return {static_cast<std::time_t>(left / 1s), static_cast<long>((left % 1s).count())};
}

bool isTemporary(int error) {
  return error == EAGAIN || error == EINTR;
}

}  // namespace

struct SerialLine::System {
  explicit System(const std::string& device) : port(device), cancelled(::eventfd(0, EFD_CLOEXEC)) {
    if (!cancelled.isOpen()) throw portErrorOf(errno);
  }

  /// Waits until the port is ready for `events`; false if it was not at `deadline`.
  [[nodiscard]] bool waitFor(short events, Clock::time_point deadline) const {
    std::array<::pollfd, 2> watched{::pollfd{port.descriptor(), events, 0},
                                    ::pollfd{cancelled.number(), POLLIN, 0}};
    int ready = -1;
    do {
      const ::timespec left = timeUntil(deadline);
      ready = ::ppoll(watched.data(), watched.size(), &left, nullptr);
    } while (ready < 0 && errno == EINTR);
    if ((watched[1].revents & POLLIN) != 0) throw LineError(LineProblem::Cancelled);
    if (ready != 0 && (watched[0].revents & events) == 0) throw LineError(LineProblem::Gone);
    return ready != 0;
  }

  /// Reads what is there; 0 if there is nothing.
  [[nodiscard]] std::size_t readNow(std::span<std::uint8_t> buffer) const {
    const ::ssize_t length = ::read(port.descriptor(), buffer.data(), buffer.size());
    if (length > 0) return static_cast<std::size_t>(length);
    if (length < 0 && isTemporary(errno)) return 0;
    throw LineError(LineProblem::Gone);
  }

  /// Writes what the port takes at once.
  [[nodiscard]] std::size_t writeNow(std::span<const std::uint8_t> bytes) const {
    const ::ssize_t length = ::write(port.descriptor(), bytes.data(), bytes.size());
    if (length >= 0) return static_cast<std::size_t>(length);
    if (isTemporary(errno)) return 0;
    throw LineError(LineProblem::Gone);
  }

  [[nodiscard]] bool change(int lines, bool isOn) const {
    return ::ioctl(port.descriptor(), isOn ? TIOCMBIS : TIOCMBIC, &lines) == 0;
  }

  PortHold port;
  FileDescriptor cancelled;  ///< readable from `cancel` on
};

SerialLine::SerialLine(const std::string& device) : system_(std::make_unique<System>(device)) {}

SerialLine::~SerialLine() = default;

void SerialLine::configure(const LineSettings& settings) {
  applySettings(system_->port.descriptor(), settings);
}

bool SerialLine::setRts(bool isOn) {
  return system_->change(TIOCM_RTS, isOn);
}

bool SerialLine::setDtr(bool isOn) {
  return system_->change(TIOCM_DTR, isOn);
}

bool SerialLine::hasCarrier() const {
  int lines = 0;
  return ::ioctl(system_->port.descriptor(), TIOCMGET, &lines) == 0 && (lines & TIOCM_CAR) != 0;
}

std::size_t SerialLine::write(std::span<const std::uint8_t> bytes, Clock::time_point deadline) {
  std::size_t taken = 0;
  while (taken < bytes.size() && system_->waitFor(POLLOUT, deadline)) {
    taken += system_->writeNow(bytes.subspan(taken));
  }
  return taken;
}

bool SerialLine::drain(Clock::time_point deadline) {
  for (;;) {
    int pending = 0;
    if (::ioctl(system_->port.descriptor(), TIOCOUTQ, &pending) != 0) {
      throw LineError(LineProblem::Gone);
    }
    const auto now = Clock::now();
    // Without events to wait for, this waits for the cancellation alone.
    if (pending == 0 || now >= deadline) return pending == 0;
    (void)system_->waitFor(0, std::min(deadline, now + drainStep));
  }
}

bool SerialLine::waitForInput(Clock::time_point deadline) {
  return system_->waitFor(POLLIN, deadline);
}

std::size_t SerialLine::read(std::span<std::uint8_t> buffer, Clock::time_point deadline) {
  while (system_->waitFor(POLLIN, deadline)) {
    if (const std::size_t length = system_->readNow(buffer)) return length;
  }
  return 0;
}

void SerialLine::discardInput() {
  std::array<std::uint8_t, 4096> discarded{};
  for (std::size_t total = 0; total < maxDiscarded;) {
    const std::size_t length = system_->readNow(discarded);
    if (length == 0) return;
    total += length;
  }
}

void SerialLine::cancel() noexcept {
  // Fails only if it has been called 2^64 - 2 times.
  (void)::eventfd_write(system_->cancelled.number(), 1);
}

std::intptr_t SerialLine::nativeHandle() const {
  return system_->port.descriptor();
}

}  // namespace tessara
