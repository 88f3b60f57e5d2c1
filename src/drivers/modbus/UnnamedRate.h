#pragma once

#include <cstdint>

namespace tessara {

/// Sets an open port, in both directions, to a rate that the terminal interface has no constant
/// for, such as 14400 bit/s. False if there is no such rate, or none near it on this port.
bool setUnnamedRate(int descriptor, std::int32_t rate);

/// True if a port that comes out at `actual` bit/s can do for `wanted`: adapters divide a clock,
/// and a character is still read right at up to 2 % off.
bool isNearRate(std::int32_t wanted, std::uint32_t actual);

}  // namespace tessara
