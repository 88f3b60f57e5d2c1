#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessara {

/// How a USB device identifies itself.
struct UsbIdentity {
  std::uint16_t vendor = 0;
  std::uint16_t product = 0;
  /// Empty for a device without a serial number.
  std::string serial{};
  /// The number of the USB interface, for devices with more than one port.
  std::uint8_t interfaceNumber = 0;

  bool operator==(const UsbIdentity&) const = default;
};

/// A port that can be offered to a user, from any source. All texts are UTF-8.
struct KnownPort {
  /// The number of COM<comPort>, from 1 on.
  std::int16_t comPort = 0;
  /// The name by which the port list recognises the kind of adapter: "\Device\Silabser0".
  std::string deviceName;
  /// The file by which the port is opened: "/dev/ttyUSB0".
  std::string deviceNode;
  /// The kernel driver, "cp210x"; empty for a port without a driver.
  std::string driver{};
  /// The USB device behind the port, if there is one and it is known.
  std::optional<UsbIdentity> usb{};

  bool operator==(const KnownPort&) const = default;
};

/// A source of ports: the settings, a running simulator, the system's device discovery.
class PortSource {
 public:
  PortSource() = default;
  PortSource(const PortSource&) = delete;
  PortSource& operator=(const PortSource&) = delete;
  virtual ~PortSource() = default;

  /// The ports that this source knows now, in the order in which they are offered. Looked up anew
  /// at each call, so that ports may come and go.
  [[nodiscard]] virtual std::vector<KnownPort> ports() const = 0;
};

}  // namespace tessara
