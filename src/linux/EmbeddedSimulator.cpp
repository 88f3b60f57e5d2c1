#include "linux/EmbeddedSimulator.h"

#include <utility>

#include "drivers/nfc/NoUsbReaders.h"
#include "linux/SimulatedKnownPort.h"
#include "ports/AdapterWords.h"
#include "simulator/PluggableModule.h"
#include "simulator/nfc/SimulatedUsbReader.h"

namespace tessara {

namespace {

constexpr std::int16_t embeddedPort = 100;

}  // namespace

EmbeddedSimulator::EmbeddedSimulator(const std::filesystem::path& moduleFile) {
  if (auto module = loadUsbReaderModule(moduleFile)) {
    readers_ = std::make_unique<SimulatedUsbReader>(*std::move(module));
    return;
  }
  PluggableModule module = loadPluggableModule(moduleFile);
  name_ = module.deviceNamePrefix + std::to_string(embeddedPort);
  port_ = std::make_unique<LinePort>(std::move(module.line));
  readers_ = std::make_unique<NoUsbReaders>();
}

std::int16_t EmbeddedSimulator::comPort() const {
  return port_ ? embeddedPort : usbReaderPort;
}

std::vector<KnownPort> EmbeddedSimulator::ports() const {
  if (!port_) return {};
  return {simulatedKnownPort(embeddedPort, name_, port_->device())};
}

}  // namespace tessara
