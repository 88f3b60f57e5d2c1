#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tessara {

/// Translates port numbers to device nodes.
class PortDirectory {
 public:
  PortDirectory() = default;
  PortDirectory(const PortDirectory&) = delete;
  PortDirectory& operator=(const PortDirectory&) = delete;
  virtual ~PortDirectory() = default;

  /// The device node of COM<comPort>, "/dev/ttyUSB0"; nothing if there is no such port.
  [[nodiscard]] virtual std::optional<std::string> deviceOf(std::int16_t comPort) const = 0;
};

}  // namespace tessara
