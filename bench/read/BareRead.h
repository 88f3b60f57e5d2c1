#pragma once

#include <string>

#include "WireTime.h"

namespace tessara::bench {

/// The same requests with the same silences and delays, sent by libmodbus alone: connect, request,
/// close. Throws std::runtime_error if a reply is missing.
Seconds bareRead(const std::string& device, int rate, const ModuleOnLine& module);

}  // namespace tessara::bench
