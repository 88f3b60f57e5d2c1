#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessara {

/// What a USB device says of itself.
struct UsbIdentity {
  std::uint16_t vendor = 0;
  std::uint16_t product = 0;
  /// Empty for a device without one.
  std::string serial{};
  /// Number of the USB interface, for devices that are more than one port.
  std::uint8_t interfaceNumber = 0;

  bool operator==(const UsbIdentity&) const = default;
};

/// A port that can be offered to a user, whoever found it. All texts are UTF-8.
struct KnownPort {
  /// The number of COM<comPort>, from 1 on.
  std::int16_t comPort = 0;
  /// The name by which the port list tells the kind of adapter: "\Device\Silabser0".
  std::string deviceName;
  /// Where it is opened: "/dev/ttyUSB0".
  std::string deviceNode;
  /// The kernel driver, "cp210x"; empty for a port that no driver stands behind.
  std::string driver{};
  /// The USB device behind the port, if there is one and somebody knows it.
  std::optional<UsbIdentity> usb{};

  bool operator==(const KnownPort&) const = default;
};

/// Somebody who knows ports: the settings, a running simulator, the system's device discovery.
class PortSource {
 public:
  PortSource() = default;
  PortSource(const PortSource&) = delete;
  PortSource& operator=(const PortSource&) = delete;
  virtual ~PortSource() = default;

  /// The ports that this source knows at this moment, in the order in which they are to be offered.
  /// Asked anew each time, so that a port that came or went is seen.
  [[nodiscard]] virtual std::vector<KnownPort> ports() const = 0;
};

}  // namespace tessara
