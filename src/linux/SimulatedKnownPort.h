#pragma once

#include <cstdint>
#include <string>

#include "linux/PortSource.h"

namespace tessara {

/// A simulator's port as one among others. What has the device name of a TWN4 reader also has the
/// USB identity of one, by which the port list tells it from other devices of that name.
KnownPort simulatedKnownPort(std::int16_t comPort, const std::string& deviceName,
                             const std::string& deviceNode);

}  // namespace tessara
