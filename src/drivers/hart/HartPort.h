#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "drivers/hart/HartModem.h"
#include "drivers/hart/HartTimings.h"
#include "serial/SerialLine.h"

namespace tessara {

/// How a link works with its modem.
struct HartOptions {
  HartTimings timings{};
  HartCarrier carrier = HartCarrier::Rts;

  /// Control lines to use in place of the port's own; they must outlive the link.
  ControlLines* controlLines = nullptr;
};

/// A serial port with a HART modem: 1200 bit/s, 8 data bits, odd parity, one stop bit. Parity is
/// sent but not checked, since the check byte tells more.
class HartPort {
 public:
  using Clock = SerialLine::Clock;

  explicit HartPort(const HartOptions& options) : options_(options) {}

  /// Opens and configures the port. Throws PortError.
  void open(const std::string& device);
  /// Closes the port; harmless when none is open.
  void close() noexcept;
  [[nodiscard]] bool isOpen() const { return line_.has_value(); }

  /// Sends the bytes and returns the time at which the last of them has left. Where the host
  /// switches the carrier, returns two characters after that. Throws HartFault.
  Clock::time_point send(std::span<const std::uint8_t> bytes);

  /// Returns what has come, as soon as anything has; empty if nothing comes before `deadline`.
  /// Valid until the next call. Throws HartFault if the port has gone.
  std::span<const std::uint8_t> receive(Clock::time_point deadline);

  /// True if the port reports that somebody is sending.
  [[nodiscard]] bool hearsCarrier() const { return modem_->hearsCarrier(); }

 private:
  HartOptions options_;
  std::optional<SerialLine> line_;
  std::optional<HartModem> modem_;
  std::array<std::uint8_t, 512> buffer_{};
};

}  // namespace tessara
