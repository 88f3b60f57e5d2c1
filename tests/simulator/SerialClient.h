#pragma once

#include <chrono>
#include <cstddef>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>

#include "serial/linux/FileDescriptor.h"
#include "simulator/ModbusCodec.h"

namespace tessara::testing {

/// A client of a serial port.
class SerialClient {
 public:
  explicit SerialClient(const std::string& device, ::speed_t rate = B19200)
      : port_(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    ::termios settings{};
    if (!port_.isOpen() || ::tcgetattr(port_.number(), &settings) != 0) {
      throw std::runtime_error("cannot open " + device);
    }
    ::cfmakeraw(&settings);
    ::cfsetspeed(&settings, rate);
    ::tcsetattr(port_.number(), TCSANOW, &settings);
  }

  [[nodiscard]] int descriptor() const { return port_.number(); }

  void send(const Bytes& bytes) const {
    if (::write(port_.number(), bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
      throw std::runtime_error("cannot write to the port");
    }
  }

  /// The next `count` bytes; fewer if the line ends or if nothing comes for that long.
  [[nodiscard]] Bytes receive(std::size_t count,
                              std::chrono::milliseconds patience = std::chrono::seconds(20)) const {
    Bytes received;
    ::pollfd waiting{port_.number(), POLLIN, 0};
    while (received.size() < count && ::poll(&waiting, 1, static_cast<int>(patience.count())) > 0) {
      Bytes piece(count - received.size());
      const ssize_t length = ::read(port_.number(), piece.data(), piece.size());
      if (length <= 0) break;
      received.insert(received.end(), piece.begin(), piece.begin() + length);
    }
    return received;
  }

  [[nodiscard]] Bytes exchange(const Bytes& request, std::size_t count) const {
    send(request);
    return receive(count);
  }

  /// True once the port has gone away.
  [[nodiscard]] bool isHungUp(std::chrono::milliseconds patience = std::chrono::seconds(20)) const {
    ::pollfd waiting{port_.number(), 0, 0};
    return ::poll(&waiting, 1, static_cast<int>(patience.count())) > 0 &&
           (waiting.revents & POLLHUP) != 0;
  }

 private:
  FileDescriptor port_;
};

}  // namespace tessara::testing
