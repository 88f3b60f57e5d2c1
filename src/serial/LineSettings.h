#pragma once

#include <cstdint>

namespace tessara {

/// Lowest rate in bit/s that drivers use: at lower ones a read would block its caller for minutes.
inline constexpr std::int32_t minLineRate = 300;

enum class Parity { None, Even, Odd };

/// How characters travel on a serial line.
struct LineSettings {
  std::int32_t rate = 19200;  ///< bit/s
  int dataBits = 8;           ///< 5 to 8
  Parity parity = Parity::None;
  int stopBits = 1;  ///< 1 or 2

  /// A character with the wrong parity arrives as 0; otherwise it arrives as it came.
  bool checksParity = false;
};

/// True if a port that runs at `actual` bit/s is good enough for `wanted`: adapters divide a clock,
/// and characters are still read correctly at up to 2 % off.
constexpr bool isNearRate(std::int32_t wanted, std::int64_t actual) {
  constexpr std::int64_t smallestPart = 50;
  const std::int64_t difference = wanted > actual ? wanted - actual : actual - wanted;
  return difference * smallestPart <= wanted;
}

}  // namespace tessara
