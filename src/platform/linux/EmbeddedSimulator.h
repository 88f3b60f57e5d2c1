#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/linux/PortSource.h"
#include "simulator/LinePort.h"

namespace tessara {

struct PluggableModule;

/// A simulated module inside this program, on a port that no other program is told of.
class EmbeddedSimulator final : public PortSource {
 public:
  /// The number of its port.
  static constexpr std::int16_t comPort = 100;

  /// Plugs the module of that file in. Throws ModuleFileError if the file describes none, and
  /// std::system_error if the system gives no port.
  explicit EmbeddedSimulator(const std::filesystem::path& moduleFile);

  /// The one port. Its device node is empty while a fault keeps it unplugged.
  [[nodiscard]] std::vector<KnownPort> ports() const override;

 private:
  explicit EmbeddedSimulator(PluggableModule module);

  std::string name_;
  LinePort port_;
};

}  // namespace tessara
