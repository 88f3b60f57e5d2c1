#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include <asio/error_code.hpp>
#include <asio/io_context.hpp>
#include <asio/serial_port.hpp>

#include "drivers/PortLock.h"
#include "drivers/hart/HartTimings.h"
#include "drivers/hart/ModemLines.h"

namespace tessara {

/// A serial port with a HART modem: 1200 bit/s, 8 data bits, odd parity, one stop bit. Parity is
/// set but not looked at, since the check byte tells more.
class HartPort {
 public:
  using Clock = std::chrono::steady_clock;

  HartPort(const HartTimings& timings, ModemLines modem)
      : timings_(timings), modem_(std::move(modem)) {}

  /// Takes the port and sets it up. Throws PortError.
  void open(const std::string& device);
  /// Hands the port back; harmless when there is none.
  void close() noexcept;
  [[nodiscard]] bool isOpen() const { return port_.has_value(); }

  /// Sends the bytes and gives the time at which the last of them has left. Where the host switches
  /// the carrier, returns two characters after that. Throws HartFault.
  Clock::time_point send(std::span<const std::uint8_t> bytes);

  /// What has come, as soon as anything has; nothing if nothing comes before `deadline`. Stays
  /// valid until the next call. Throws HartFault if the port has gone.
  std::span<const std::uint8_t> receive(Clock::time_point deadline);

  /// True if the port says that somebody is sending.
  [[nodiscard]] bool hearsCarrier() const { return modem_.hearsCarrier(); }

 private:
  using Completion = std::function<void(const asio::error_code&, std::size_t)>;

  std::size_t await(Clock::time_point deadline, const std::function<void(Completion)>& operation);

  HartTimings timings_;
  ModemLines modem_;
  std::optional<PortLock> lock_;
  asio::io_context context_{1};
  std::optional<asio::serial_port> port_;
  std::array<std::uint8_t, 512> buffer_{};
};

}  // namespace tessara
