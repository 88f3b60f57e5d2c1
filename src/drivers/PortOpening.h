#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "drivers/PortDirectory.h"

namespace tessara {

/// The way from a port number to an open port, which ends in a sentence if it does not lead there.
class PortOpening {
 public:
  PortOpening(const PortDirectory& ports, std::int16_t comPort);

  /// Has `open` take the port's device node; it throws PortError or another exception if it cannot.
  /// Gives why the port is not open, "COM3 (/dev/ttyUSB0) is in use by another program", or nothing
  /// if it is.
  std::string failureOf(const std::function<void(const std::string& device)>& open);

  /// The port as messages name it.
  [[nodiscard]] const std::string& port() const { return port_; }

 private:
  const PortDirectory& ports_;
  std::int16_t comPort_;
  std::string port_;
};

}  // namespace tessara
