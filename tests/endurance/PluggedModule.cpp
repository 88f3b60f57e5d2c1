#include "PluggedModule.h"

#include <utility>

#include "drivers/nfc/NoUsbReaders.h"
#include "linux/SimulatedKnownPort.h"
#include "ports/AdapterWords.h"
#include "simulator/PluggableModule.h"

namespace tessara::testing {
namespace {

constexpr std::int16_t serialPort = 100;

}  // namespace

PluggedModule::PluggedModule(const std::filesystem::path& moduleFile) {
  if (auto module = loadUsbReaderModule(moduleFile)) {
    reader_ = std::make_unique<SimulatedUsbReader>(*std::move(module));
    return;
  }
  PluggableModule module = loadPluggableModule(moduleFile);
  deviceName_ = module.deviceNamePrefix + std::to_string(serialPort);
  port_ = std::make_unique<LinePort>(std::move(module.line));
  noReaders_ = std::make_unique<NoUsbReaders>();
}

void PluggedModule::unplug() {
  if (port_) {
    port_->unplug();
  } else {
    reader_->unplug();
  }
}

void PluggedModule::plug() {
  if (port_) {
    port_->plug();
  } else {
    reader_->plug();
  }
}

std::int16_t PluggedModule::comPort() const {
  return port_ ? serialPort : usbReaderPort;
}

std::vector<KnownPort> PluggedModule::ports() const {
  if (!port_ || port_->device().empty()) return {};
  return {simulatedKnownPort(serialPort, deviceName_, port_->device())};
}

UsbReaders& PluggedModule::usbReaders() const {
  return reader_ ? *reader_ : *noReaders_;
}

}  // namespace tessara::testing
