#pragma once

#include <chrono>
#include <cstdint>

namespace tessara {

/// Duration of one character: 11 bits, with parity or with a second stop bit. `rate` is in bit/s
/// and above 0.
constexpr std::chrono::nanoseconds characterTime(std::int64_t rate) {
  return std::chrono::nanoseconds(11'000'000'000 / rate);
}

/// The silence that ends a Modbus RTU frame: 3.5 characters, and 1.75 ms above 19200 bit/s, as
/// "MODBUS over Serial Line" has it.
constexpr std::chrono::nanoseconds silentTime(std::int64_t rate) {
  constexpr std::int64_t maxProportionalRate = 19200;
  return rate > maxProportionalRate ? std::chrono::microseconds{1750} : characterTime(rate) * 7 / 2;
}

}  // namespace tessara
