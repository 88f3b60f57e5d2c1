#pragma once

#include <cstdint>
#include <string>

namespace tessara {

/// What somebody who wants to open a port would meet at this moment.
enum class PortState : std::uint8_t {
  Free,    ///< can be opened
  InUse,   ///< somebody else, or another connection of this program, holds it
  Denied,  ///< the user may not open it
  Absent,  ///< there is no such device
  NoPort,  ///< the device is there but is no serial port, or is out of order
};

/// The state of the port at a device node. A port in use is not disturbed: none of its settings and
/// none of its bytes are touched.
PortState portState(const std::string& deviceNode);

/// "free", "in use", "denied", "absent" and "no serial port".
std::string portStateText(PortState state);

}  // namespace tessara
