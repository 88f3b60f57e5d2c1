#include "linux/ports/UsbKeys.h"

#include <array>
#include <cstdio>
#include <set>
#include <utility>

#include "base/Text.h"

namespace tessara {
namespace {

constexpr const char* viatorKey = R"(SYSTEM\ControlSet001\Enum\USB\VID_2458&PID_0001\)";
constexpr const char* usbserKey = R"(SYSTEM\CurrentControlSet\Services\usbser\enum)";
constexpr const char* enumKey = R"(SYSTEM\CurrentControlSet\Enum\)";
constexpr const char* deviceParameters = R"(\Device Parameters)";
constexpr const char* portName = "PortName";

constexpr std::uint16_t viatorVendor = 0x2458;
constexpr std::uint16_t viatorProduct = 0x0001;

std::u16string placeOf(const std::u16string& key, const std::u16string& name) {
  return upperCase(key + u'|' + name);
}

std::string comName(const KnownPort& port) {
  return "COM" + std::to_string(port.comPort);
}

bool isServedByUsbser(const KnownPort& port) {
  return containsIgnoringCase(fromUtf8(port.deviceName), u"USBSER");
}

/// "USB\VID_09D8&PID_0420\A1", with the number of the interface on devices that have several. A
/// path must name one device only, so the port replaces a missing or duplicate serial number.
std::string instancePath(const KnownPort& port, std::set<std::string>& taken) {
  const UsbIdentity& usb = *port.usb;
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), R"(USB\VID_%04X&PID_%04X)", usb.vendor, usb.product);
  std::string device(text.data());
  if (usb.interfaceNumber != 0) {
    std::snprintf(text.data(), text.size(), "&MI_%02X", usb.interfaceNumber);
    device += text.data();
  }
  std::string path = device + '\\' + usb.serial;
  if (usb.serial.empty() || !taken.insert(path).second) {
    path += '&' + comName(port);
  }
  return path;
}

}  // namespace

UsbKeys::UsbKeys(const std::vector<KnownPort>& ports) {
  int viators = 0;
  std::int64_t served = 0;
  std::set<std::string> paths;
  for (const KnownPort& port : ports) {
    if (!port.usb) {
      continue;
    }
    const Variant com = fromUtf8(comName(port));
    if (port.usb->vendor == viatorVendor && port.usb->product == viatorProduct) {
      add(viatorKey + std::to_string(++viators) + deviceParameters, portName, com);
    }
    const std::string path = instancePath(port, paths);
    if (isServedByUsbser(port)) {
      add(usbserKey, std::to_string(served++), fromUtf8(path));
    }
    add(enumKey + path + deviceParameters, portName, com);
  }
  add(usbserKey, "Count", served);
}

void UsbKeys::add(const std::string& key, const std::string& name, Variant value) {
  values_[placeOf(fromUtf8(key), fromUtf8(name))] = std::move(value);
}

Variant UsbKeys::value(const std::u16string& key, const std::u16string& name) const {
  const auto found = values_.find(placeOf(key, name));
  return found == values_.end() ? Variant{} : found->second;
}

}  // namespace tessara
