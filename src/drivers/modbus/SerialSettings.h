#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include <termios.h>

namespace tessara {

/// The terminal interface's constant for `rate` bit/s; nothing for a rate that it has none for.
std::optional<::speed_t> speedOf(std::int32_t rate);

/// The time of one character on a Modbus RTU line: 11 bits, whatever the parity.
constexpr std::chrono::nanoseconds characterTime(std::int32_t rate) {
  return std::chrono::nanoseconds(11'000'000'000 / rate);
}

/// Sets an open port to raw bytes of 8 data bits, even parity and one stop bit at `rate` bit/s,
/// without flow control, and empties its buffers. A port that knows no parity, as a
/// pseudo-terminal, goes without. Throws PortError, also for a rate that the port cannot have.
void applySettings(int descriptor, std::int32_t rate);

}  // namespace tessara
