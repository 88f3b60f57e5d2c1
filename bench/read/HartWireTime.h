#pragma once

#include "WireTime.h"

namespace tessara::bench {

/// A module behind a HART modem, healthy.
inline constexpr const char* hartModuleFile = "hart-healthy.json";

/// The time of a whole read of that module on the wire at 1200 bit/s: its characters, the 33
/// characters of silence that a master keeps before it starts, the 8 characters that it leaves to
/// the other master after each reply, and the 3.5 characters before the module starts a reply.
Seconds hartWireTime();

}  // namespace tessara::bench
