#pragma once

#include <string>

#include "linux/ports/SerialDevice.h"

namespace tessara {

/// By what a device is known again after it was unplugged or the machine was started anew. Both
/// texts hold no blank.
struct DeviceKey {
  /// For a USB device "vendor:product:serial:interface" with hexadecimal numbers and, on adapters
  /// with several ports on one interface, ".port" at the end: "10c4:ea60:0001:00". For any other
  /// the name of its terminal: "ttyS0".
  std::string identity;
  /// Where a USB device is plugged in: "pci0000:00/0000:00:14.0/usb-2.1", the controller and the
  /// chain of ports, without the number of the bus, which may change from start to start. Empty
  /// for any other device.
  std::string place;

  bool operator==(const DeviceKey&) const = default;
};

/// True for a device that is known by its serial number wherever it is plugged in.
bool isKnownAnywhere(const SerialDevice& device);

DeviceKey deviceKeyOf(const SerialDevice& device);

}  // namespace tessara
