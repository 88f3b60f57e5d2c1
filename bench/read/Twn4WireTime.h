#pragma once

#include "WireTime.h"

namespace tessara::bench {

/// A module in the field of a TWN4 reader, healthy.
inline constexpr const char* kTwn4Module = "nfc-twn4-healthy.json";

/// What a whole read of that module takes on the wire between the program and the reader at the
/// rate: the characters of the lines that a read cannot do without, and the 3.5 characters that the
/// reader takes to begin each of its lines. The field itself takes no time.
Seconds twn4WireTime(int rate);

}  // namespace tessara::bench
