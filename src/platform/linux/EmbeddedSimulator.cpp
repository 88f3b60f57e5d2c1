#include "platform/linux/EmbeddedSimulator.h"

#include <utility>

#include "simulator/PluggableModule.h"

namespace tessara {

EmbeddedSimulator::EmbeddedSimulator(const std::filesystem::path& moduleFile)
    : EmbeddedSimulator(loadPluggableModule(moduleFile)) {}

EmbeddedSimulator::EmbeddedSimulator(PluggableModule module)
    : name_(module.deviceNamePrefix + std::to_string(comPort)), port_(std::move(module.line)) {}

std::vector<KnownPort> EmbeddedSimulator::ports() const {
  return {{comPort, name_, port_.device()}};
}

}  // namespace tessara
