#include "platform/linux/EmbeddedSimulator.h"

#include "simulator/ModuleFile.h"

namespace tessara {

EmbeddedSimulator::EmbeddedSimulator(const std::filesystem::path& moduleFile)
    : port_(loadModule(moduleFile)) {}

std::vector<KnownPort> EmbeddedSimulator::ports() const {
  return {{comPort, "\\Device\\Silabser" + std::to_string(comPort), port_.device()}};
}

}  // namespace tessara
