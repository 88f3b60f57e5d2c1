#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "drivers/PortDirectory.h"

namespace tessara {

/// Opens a port by its number and puts failures into words.
class PortOpening {
 public:
  PortOpening(const PortDirectory& ports, std::int16_t comPort);

  /// Calls `open` with the port's device node; it throws PortError or another exception if it
  /// fails. Returns why the port is not open, "COM3 (/dev/ttyUSB0) is in use by another program",
  /// or an empty text if it is.
  std::string failureOf(const std::function<void(const std::string& device)>& open);

  /// The port as messages name it: "COM3 (/dev/ttyUSB0)", or "COM3" if it has no device.
  [[nodiscard]] const std::string& port() const { return port_; }

 private:
  const PortDirectory& ports_;
  std::int16_t comPort_;
  std::string port_;
};

}  // namespace tessara
