#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "linux/PortSource.h"

namespace tessara {

/// A terminal of the kernel that may be a serial port, with what is known of the device behind it.
struct SerialDevice {
  /// The kernel's name, "ttyUSB0".
  std::string name;
  /// "/dev/ttyUSB0"; nothing says that it exists.
  std::string node;
  /// The driver of the device, "cp210x". A terminal without a driver has the name of its kind
  /// instead, "rfcomm".
  std::string driver;
  /// The type number that the kernel's serial core gives to a UART, "0" for one that it did not
  /// find; nothing for a terminal of any other kind.
  std::optional<std::string> uartType{};
  std::optional<UsbIdentity> usb{};
  /// The USB device's own folder below "/sys", which tells where it is plugged in:
  /// "/devices/pci0000:00/0000:00:14.0/usb1/1-2". Empty without a USB device.
  std::string usbPath{};
  /// Number of the port on its USB interface, for adapters with several; empty if there is none.
  std::string usbPort{};

  bool operator==(const SerialDevice&) const = default;
};

/// The terminals that may be serial ports, or nothing if the asked one cannot tell.
using FoundDevices = std::optional<std::vector<SerialDevice>>;

/// Asks udev.
FoundDevices udevDevices();

/// Reads the kernel's own tree of devices, where udev does not answer. `root` is the folder under
/// which "sys" and "dev" lie.
FoundDevices sysfsDevices(const std::string& root = "");

/// The kind of terminal that a kernel name tells: "ttyUSB" for "ttyUSB0".
std::string_view terminalKind(std::string_view name);

/// True for the kinds of terminals that are serial ports although no device stands behind them:
/// Bluetooth links, the gadget's side of a USB cable, null-modem pairs of the kernel. All others
/// without a device are consoles and pseudo-terminals.
bool isPortWithoutDevice(std::string_view name);

/// What a USB device says of itself, from its attributes: vendor, product and interface number in
/// hexadecimal. Nothing if vendor or product is no number.
std::optional<UsbIdentity> usbIdentity(std::string_view vendor, std::string_view product,
                                       std::string_view serial, std::string_view interfaceNumber);

}  // namespace tessara
