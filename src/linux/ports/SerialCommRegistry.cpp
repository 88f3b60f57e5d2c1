#include "linux/ports/SerialCommRegistry.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/Text.h"
#include "linux/ports/UsbKeys.h"
#include "ports/RegEnum.h"

namespace tessara {
namespace {

/// The system's error numbers.
constexpr std::int32_t notFound = 2;
constexpr std::int32_t invalidHandle = 6;
constexpr std::int32_t moreData = 234;
constexpr std::int32_t noMoreItems = 259;

/// The access right with which the names are enumerated.
constexpr std::uint32_t readAccess = 0x20019;

constexpr const char* serialCommKey = R"(HARDWARE\DEVICEMAP\SERIALCOMM)";
constexpr const char* firstViatorKey =
    R"(SYSTEM\ControlSet001\Enum\USB\VID_2458&PID_0001\1\Device Parameters)";

/// The name of a value, such as \Device\Silabser0, and its text, such as COM3.
using Value = std::pair<std::string, std::string>;

std::vector<Value>::const_iterator find(const std::vector<Value>& values, std::string_view name) {
  return std::find_if(values.begin(), values.end(),
                      [&](const Value& value) { return equalIgnoringCase(value.first, name); });
}

/// The name, with another number if another port has it already: names of values are unique.
std::string freeName(const std::vector<Value>& values, std::string name) {
  const std::string stem = name.substr(0, name.find_last_not_of("0123456789") + 1);
  for (int number = 0; find(values, name) != values.end(); ++number) {
    name = stem + std::to_string(number);
  }
  return name;
}

std::vector<Value> valuesOf(const std::vector<KnownPort>& ports) {
  std::vector<Value> values;
  values.reserve(ports.size());
  for (const KnownPort& port : ports) {
    values.emplace_back(freeName(values, port.deviceName), "COM" + std::to_string(port.comPort));
  }
  return values;
}

std::string tooManyPorts(const std::vector<KnownPort>& ports) {
  return "There are " + std::to_string(ports.size()) + " ports, and the port list holds at most " +
         std::to_string(RegEnum::maxPorts) + " lines: COM" +
         std::to_string(ports[RegEnum::maxPorts].comPort) + " and all ports after it are left out";
}

}  // namespace

struct SerialCommRegistry::Snapshot {
  explicit Snapshot(const std::vector<KnownPort>& ports) : values(valuesOf(ports)), usb(ports) {}

  std::vector<Value> values;
  UsbKeys usb;
};

void SerialCommRegistry::look() {
  std::vector<KnownPort> ports = ports_.ports();
  if (ports.size() > RegEnum::maxPorts) {
    if (report_) report_(tooManyPorts(ports));
    ports.resize(RegEnum::maxPorts);
  }
  current_ = std::make_shared<const Snapshot>(ports);
  walked_ = false;
}

const SerialCommRegistry::Snapshot* SerialCommRegistry::behind(RegistryKey key) const {
  const auto found = openKeys_.find(key);
  return found == openKeys_.end() ? nullptr : found->second.get();
}

std::int32_t SerialCommRegistry::RegOpenKeyExA(std::int32_t hive, const std::string& subKey,
                                               std::uint32_t /*options*/, std::uint32_t access,
                                               RegistryKey& key) {
  if (hive != localMachine || !equalIgnoringCase(subKey, serialCommKey)) {
    return notFound;
  }
  const bool beginsWalk = access == readAccess;
  if (!current_ || (beginsWalk && walked_)) {
    look();
  }
  walked_ = walked_ || beginsWalk;
  if (current_->values.empty()) {
    return notFound;
  }
  key = ++lastKey_;
  openKeys_[key] = current_;
  return success;
}

std::int32_t SerialCommRegistry::RegEnumValueA(RegistryKey key, std::uint32_t index,
                                               std::string& name, std::uint32_t& length) {
  const Snapshot* snapshot = behind(key);
  if (snapshot == nullptr) {
    return invalidHandle;
  }
  if (index >= snapshot->values.size()) {
    return noMoreItems;
  }
  const std::string& found = snapshot->values[index].first;
  if (found.size() >= std::min<std::size_t>(length, name.size())) {
    return moreData;
  }
  std::copy(found.begin(), found.end(), name.begin());
  name[found.size()] = '\0';
  length = static_cast<std::uint32_t>(found.size());
  return success;
}

std::int32_t SerialCommRegistry::RegQueryValueExA(RegistryKey key, const std::string& valueName,
                                                  std::uint32_t& type, std::string* data,
                                                  std::uint32_t& size) {
  const Snapshot* snapshot = behind(key);
  if (snapshot == nullptr) {
    return invalidHandle;
  }
  const auto value = find(snapshot->values, valueName);
  if (value == snapshot->values.end()) {
    return notFound;
  }
  const std::string& port = value->second;
  const std::uint32_t offered = size;
  type = static_cast<std::uint32_t>(RegistryType::String);
  size = static_cast<std::uint32_t>(port.size() + 1);
  if (data == nullptr) {
    return success;
  }
  if (std::min<std::size_t>(offered, data->size()) < size) {
    return moreData;
  }
  std::copy(port.begin(), port.end(), data->begin());
  (*data)[port.size()] = '\0';
  return success;
}

std::int32_t SerialCommRegistry::RegCloseKey(RegistryKey key) {
  return openKeys_.erase(key) == 1 ? success : invalidHandle;
}

Variant SerialCommRegistry::usbKeyValue(const std::u16string& key, const std::u16string& name) {
  if (!current_ || equalIgnoringCase(toUtf8(key), firstViatorKey)) {
    look();
  }
  return current_->usb.value(key, name);
}

}  // namespace tessara
