#pragma once

#include <cstdint>
#include <string>

namespace tessara {

/// What a program that opens the port now would find.
enum class PortState : std::uint8_t {
  Free,    ///< can be opened
  InUse,   ///< another program, or another connection of this one, holds it
  Denied,  ///< the user may not open it
  Absent,  ///< there is no such device
  NoPort,  ///< the device is not a serial port, or is out of order
};

/// The state of the port at a device node. A port in use is not disturbed: none of its settings and
/// none of its bytes are touched.
PortState portState(const std::string& deviceNode);

/// "free", "in use", "denied", "absent" and "no serial port".
std::string portStateText(PortState state);

}  // namespace tessara
