#pragma once

#include <string>

#include "WireTime.h"

namespace tessara::bench {

/// The same requests with the same silences and delays, sent by libmodbus alone: connect, ask,
/// close. Throws std::runtime_error if an answer does not come.
Seconds bareRead(const std::string& device, int rate, const ModuleOnLine& module);

}  // namespace tessara::bench
