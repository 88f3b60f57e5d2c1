#pragma once

#include "WireTime.h"

namespace tessara::bench {

/// A module in the field of a TWN4 reader, healthy.
inline constexpr const char* twn4ModuleFile = "nfc-twn4-healthy.json";

/// The time of a whole read of that module on the wire between program and reader at the rate: the
/// characters of the lines that a read needs at least, and the 3.5 characters before the reader
/// starts each of its lines. The field itself takes no time.
Seconds twn4WireTime(int rate);

}  // namespace tessara::bench
