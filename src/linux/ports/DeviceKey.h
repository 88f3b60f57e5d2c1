#pragma once

#include <string>

#include "linux/ports/SerialDevice.h"

namespace tessara {

/// What identifies a device after it has been unplugged or the machine restarted. Neither text
/// contains a blank.
struct DeviceKey {
  /// For a USB device "vendor:product:serial:interface" with hexadecimal numbers and, on adapters
  /// with several ports on one interface, ".port" at the end: "10c4:ea60:0001:00". For any other
  /// device the name of its terminal: "ttyS0".
  std::string identity;
  /// Where a USB device is plugged in: "pci0000:00/0000:00:14.0/usb-2.1", the controller and the
  /// chain of ports, without the bus number, which may change at each start. Empty for any
  /// other device.
  std::string place;

  bool operator==(const DeviceKey&) const = default;
};

/// True for a device that its serial number identifies wherever it is plugged in.
bool isKnownAnywhere(const SerialDevice& device);

DeviceKey deviceKeyOf(const SerialDevice& device);

}  // namespace tessara
