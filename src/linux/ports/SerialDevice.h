#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "linux/PortSource.h"

namespace tessara {

/// A terminal of the kernel that may be a serial port, with what is known about its device.
struct SerialDevice {
  /// The kernel's name, "ttyUSB0".
  std::string name;
  /// "/dev/ttyUSB0"; it need not exist.
  std::string node;
  /// The driver of the device, "cp210x"; for a terminal without a driver the name of its kind,
  /// "rfcomm".
  std::string driver;
  /// The type number of a UART in the kernel's serial core, "0" for one without hardware; nothing
  /// for a terminal of any other kind.
  std::optional<std::string> uartType{};
  std::optional<UsbIdentity> usb{};
  /// The USB device's own folder below "/sys", which shows where it is plugged in:
  /// "/devices/pci0000:00/0000:00:14.0/usb1/1-2". Empty without a USB device.
  std::string usbPath{};
  /// The number of the port on its USB interface, for adapters with several; else empty.
  std::string usbPort{};

  bool operator==(const SerialDevice&) const = default;
};

/// The terminals that may be serial ports, or nothing if the source is not available.
using FoundDevices = std::optional<std::vector<SerialDevice>>;

/// The terminals that udev lists.
FoundDevices udevDevices();

/// The terminals in the kernel's own device tree, for systems where udev does not answer. `root` is
/// the folder that holds "sys" and "dev".
FoundDevices sysfsDevices(const std::string& root = "");

/// The kind of terminal that a kernel name stands for: "ttyUSB" for "ttyUSB0".
std::string_view terminalKind(std::string_view name);

/// True for the kinds of terminals that are serial ports although they have no device: Bluetooth
/// links, the gadget side of a USB cable, the kernel's null-modem pairs. All others without a
/// device are consoles and pseudo-terminals.
bool isPortWithoutDevice(std::string_view name);

/// The identity of a USB device from its attributes: vendor, product and interface number in
/// hexadecimal. Nothing if vendor or product is not a number.
std::optional<UsbIdentity> usbIdentity(std::string_view vendor, std::string_view product,
                                       std::string_view serial, std::string_view interfaceNumber);

}  // namespace tessara
