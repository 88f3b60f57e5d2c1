#pragma once

#include <cstdint>

#include "serial/linux/TerminalRate.h"

namespace tessara {

/// Rate of a line in bit/s.
using LineRate = std::uint32_t;

/// The factory-default rate of modules.
inline constexpr LineRate defaultLineRate = 19200;

/// The rate of the terminal behind the descriptor; defaultLineRate if it has none.
inline LineRate lineRateOf(int descriptor) {
  const LineRate rate = terminalRate(descriptor);
  return rate == 0 ? defaultLineRate : rate;
}

}  // namespace tessara
