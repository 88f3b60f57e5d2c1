#pragma once

#include <cstdint>
#include <string>

namespace tessara {

/// A port as messages name it: "COM3 (/dev/ttyUSB0)".
inline std::string portText(std::int16_t comPort, const std::string& device) {
  return "COM" + std::to_string(comPort) + " (" + device + ")";
}

/// A port with no device behind it: "COM3".
inline std::string portText(std::int16_t comPort) {
  return "COM" + std::to_string(comPort);
}

}  // namespace tessara
