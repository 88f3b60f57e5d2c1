#pragma once

#include "WireTime.h"

namespace tessara::bench {

/// A module behind a HART modem, healthy.
inline constexpr const char* kHartModule = "hart-healthy.json";

/// What a whole read of that module takes on the wire at 1200 bit/s: its characters, the silence of
/// 33 characters that a master keeps before it may begin, the turn of 8 characters that it leaves
/// to the other master behind each answer, and the 3.5 characters that the module takes to begin
/// one.
Seconds hartWireTime();

}  // namespace tessara::bench
