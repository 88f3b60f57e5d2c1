#include "linux/ports/DeviceKey.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace tessara {
namespace {

constexpr std::string_view devicesFolder = "/devices/";

/// Serial numbers may hold any bytes; only printable ASCII goes into a key.
std::string printable(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c <= ' ' || c >= '\x7F'; }, '_');
  return text;
}

std::string identityOf(const UsbIdentity& usb, const std::string& usbPort) {
  std::array<char, 16> numbers{};
  std::snprintf(numbers.data(), numbers.size(), "%04x:%04x:", usb.vendor, usb.product);
  std::array<char, 8> interfaceNumber{};
  std::snprintf(interfaceNumber.data(), interfaceNumber.size(), ":%02x", usb.interfaceNumber);
  const bool severalPorts = !usbPort.empty() && usbPort != "0";
  return numbers.data() + printable(usb.serial) + interfaceNumber.data() +
         (severalPorts ? "." + printable(usbPort) : "");
}

/// The controller and "2.1" for "/devices/pci0000:00/0000:00:14.0/usb1/1-2/1-2.1".
std::string placeOf(std::string_view usbPath) {
  if (usbPath.starts_with(devicesFolder)) {
    usbPath.remove_prefix(devicesFolder.size());
  }
  const auto bus = usbPath.find("/usb");
  const auto ports = usbPath.rfind('-');
  if (bus == std::string_view::npos || ports == std::string_view::npos || ports < bus) {
    return printable(std::string(usbPath));
  }
  return printable(std::string(usbPath.substr(0, bus)) + "/usb" +
                   std::string(usbPath.substr(ports)));
}

}  // namespace

bool isKnownAnywhere(const SerialDevice& device) {
  return device.usb && !device.usb->serial.empty();
}

DeviceKey deviceKeyOf(const SerialDevice& device) {
  if (!device.usb) {
    return {device.name, ""};
  }
  return {identityOf(*device.usb, device.usbPort), placeOf(device.usbPath)};
}

}  // namespace tessara
