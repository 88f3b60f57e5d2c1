#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "drivers/nfc/HidDevice.h"
#include "linux/PortSource.h"
#include "simulator/LinePort.h"

namespace tessara {

/// A simulated module inside this program: on a port that no other program is told of, or in the
/// field of a USB NFC reader that exists in this program alone.
class EmbeddedSimulator final : public PortSource {
 public:
  /// Plugs the module of that file in. Throws ModuleFileError if the file describes none, and
  /// std::system_error if the system gives no port.
  explicit EmbeddedSimulator(const std::filesystem::path& moduleFile);

  /// The number by which the control reaches the module: that of the port, or the one that stands
  /// for the USB reader.
  [[nodiscard]] std::int16_t comPort() const;

  /// The one port, or none if the module lies in the field of the USB reader. The device node is
  /// empty while a fault keeps the port unplugged.
  [[nodiscard]] std::vector<KnownPort> ports() const override;

  /// The USB readers of a program with this simulator in it; they live as long as it does.
  [[nodiscard]] UsbReaders& usbReaders() const { return *readers_; }

 private:
  std::string name_;
  std::unique_ptr<LinePort> port_;
  std::unique_ptr<UsbReaders> readers_;
};

}  // namespace tessara
