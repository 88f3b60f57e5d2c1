#include "ports/RegEnum.h"

#include <cstddef>
#include <string_view>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "ports/PortClass.h"
#include "ports/SerialCommKey.h"

namespace tessara {
namespace {

constexpr std::u16string_view viatorKey = u"SYSTEM\\ControlSet001\\Enum\\USB\\VID_2458&PID_0001\\";
constexpr std::u16string_view usbserKey = u"SYSTEM\\CurrentControlSet\\Services\\usbser\\enum";
constexpr std::u16string_view enumKey = u"SYSTEM\\CurrentControlSet\\Enum\\";
constexpr std::u16string_view deviceParameters = u"\\Device Parameters";
constexpr std::u16string_view twn4Device = u"VID_09D8&PID_0420";

/// The right to read a registry key.
constexpr std::uint32_t readAccess = 0x20019;
constexpr std::uint32_t nameBufferSize = 256;
/// The length of "COM".
constexpr std::size_t portNumberStart = 3;

/// Only whole numbers are read here, so the decimal separator does not matter.
constexpr std::u16string_view separator = u".";

/// The devices behind usbser that are TWN4 readers.
struct Twn4List {
  FixedTable<std::u16string, 11> keys{"Twn4Keys"};
  /// Index of the last entry; also 0 when the driver serves no device, so that an empty path is
  /// then looked up.
  std::int32_t last = 0;
};

Variant machineValue(RegistryHelper& registry, std::u16string_view key, std::u16string_view name) {
  return registry.GetValue(registry.HKeyLocalMachine(), std::u16string(key), std::u16string(name));
}

std::u16string portNameUnder(RegistryHelper& registry, std::u16string_view parent,
                             std::u16string_view instance) {
  std::u16string key(parent);
  key.append(instance).append(deviceParameters);
  return toText(machineValue(registry, key, u"PortName"), separator);
}

ViatorList findViators(RegistryHelper& registry) {
  ViatorList viators;
  std::int32_t n = 1;
  for (;;) {
    const std::u16string port = portNameUnder(registry, viatorKey, decimalText(n));
    if (!containsIgnoringCase(port, u"COM")) {
      viators.count = n - 1;
      return viators;
    }
    viators.ports[n] = port;
    ++n;
  }
}

Twn4List findTwn4Readers(RegistryHelper& registry) {
  Twn4List readers;
  const std::int32_t instances = toInt32(machineValue(registry, usbserKey, u"Count"), separator);
  if (instances <= 0) {
    return readers;
  }
  std::int32_t found = 0;
  for (std::int32_t j = 0; j < instances; ++j) {
    const std::u16string path =
        toText(machineValue(registry, usbserKey, decimalText(j)), separator);
    if (containsIgnoringCase(path, twn4Device)) {
      readers.keys[found] = path;
      ++found;
    }
  }
  readers.last = found - 1;
  return readers;
}

/// Fills PortDeviceNames and returns the number of names; 0 if there is no key.
std::int32_t collectDeviceNames(RegEnum& regEnum, RegistryApi& api) {
  const SerialCommKey key(api, readAccess);
  if (!key.opened()) {
    return 0;
  }
  for (std::int32_t index = 0;; ++index) {
    std::string name(nameBufferSize, '\0');
    std::uint32_t length = nameBufferSize;
    if (api.RegEnumValueA(key.handle(), static_cast<std::uint32_t>(index), name, length) !=
        RegistryApi::success) {
      return index;
    }
    regEnum.PortDeviceNames[index] = fromUtf8(std::string_view(name).substr(0, length));
  }
}

std::int32_t portNumber(const std::u16string& port) {
  if (port.size() < portNumberStart) {
    throw RunTimeError(ErrorNumber::InvalidCall,
                       "port name \"" + toUtf8(port) + "\" is too short to hold a number");
  }
  return toInt32(Variant{port.substr(portNumberStart)}, separator);
}

void appendPort(RegEnum& regEnum, PortClass portClass, const std::u16string& port) {
  const std::int32_t number = portNumber(port);
  regEnum.PortNumbers[regEnum.PortCount] = number;
  regEnum.PortLabels[regEnum.PortCount] = portLabel(portClass, port);
  ++regEnum.PortCount;
}

void appendUsbserPort(RegEnum& regEnum, RegistryHelper& registry, const Twn4List& readers,
                      ViatorList& viators, const std::u16string& port) {
  for (std::int32_t t = 0; t <= readers.last; ++t) {
    if (portNameUnder(registry, enumKey, readers.keys[t]) == port) {
      appendPort(regEnum, PortClass::Twn4Reader, port);
    }
  }
  for (const PortClass portClass : viatorPasses(viators, port, regEnum.ShowAllComPorts == 1)) {
    appendPort(regEnum, portClass, port);
  }
}

}  // namespace

void EnumerateComPorts(RegEnum& regEnum, RegistryHelper& registry, RegistryApi& api) {
  regEnum.PortCount = 0;
  ViatorList viators = findViators(registry);
  const Twn4List readers = findTwn4Readers(registry);
  const std::int32_t names = collectDeviceNames(regEnum, api);
  for (std::int32_t i = 0; i < names; ++i) {
    const std::u16string& deviceName = regEnum.PortDeviceNames[i];
    const std::u16string port = GetSerialCommValue(api, deviceName);
    switch (portDriverOf(deviceName)) {
      case PortDriver::Silabser:
        appendPort(regEnum, PortClass::ProgrammingAdapter, port);
        break;
      case PortDriver::Viator:
        appendPort(regEnum, PortClass::ViatorModem, port);
        break;
      case PortDriver::Usbser:
        appendUsbserPort(regEnum, registry, readers, viators, port);
        break;
      case PortDriver::Other:
        if (listedAsPlain(port, regEnum.ShowAllComPorts == 1)) {
          appendPort(regEnum, PortClass::Plain, port);
        }
        break;
    }
  }
}

std::int16_t FindPortIndex(const RegEnum& regEnum, std::int16_t comPort) {
  const std::u16string port = u"COM" + decimalText(std::int32_t{comPort});
  std::int16_t found = 0;
  for (std::int16_t i = 0; i < regEnum.PortCount; ++i) {
    if (containsIgnoringCase(regEnum.PortLabels[i], port)) {
      found = i;
    }
  }
  return found;
}

}  // namespace tessara
