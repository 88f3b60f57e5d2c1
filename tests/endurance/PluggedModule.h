#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "linux/PortSource.h"
#include "simulator/LinePort.h"
#include "simulator/nfc/SimulatedUsbReader.h"

namespace tessara::testing {

/// A simulated module with the adapter that leads to it, which can be unplugged and replugged.
class PluggedModule final : public PortSource {
 public:
  explicit PluggedModule(const std::filesystem::path& moduleFile);

  void unplug();
  void plug();

  [[nodiscard]] std::int16_t comPort() const;
  [[nodiscard]] std::vector<KnownPort> ports() const override;
  [[nodiscard]] UsbReaders& usbReaders() const;

 private:
  std::string deviceName_;
  std::unique_ptr<LinePort> port_;
  std::unique_ptr<SimulatedUsbReader> reader_;
  std::unique_ptr<UsbReaders> noReaders_;
};

}  // namespace tessara::testing
