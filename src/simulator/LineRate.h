#pragma once

#include <chrono>
#include <cstdint>

namespace tessara {

/// Rate of a line in bit/s.
using LineRate = std::uint32_t;

/// The rate that modules are delivered with.
inline constexpr LineRate kDefaultLineRate = 19200;

/// What one character takes on the wire: 11 bits, with parity or with a second stop bit.
std::chrono::nanoseconds characterTime(LineRate rate);

/// The silence that ends a Modbus frame: 3.5 characters, and 1.75 ms above 19200 bit/s.
std::chrono::nanoseconds silentTime(LineRate rate);

/// The rate that the terminal behind the descriptor is set to, unusual ones included. Either end of
/// a pseudo-terminal tells the same. kDefaultLineRate if there is none to be had.
LineRate lineRateOf(int descriptor);

}  // namespace tessara
