#include "FakeRegistry.h"

#include <algorithm>
#include <utility>

namespace tessara::testing {
namespace {

constexpr RegistryKey handle = 4711;
constexpr std::int32_t notFound = 2;
constexpr std::int32_t accessDenied = 5;
constexpr std::int32_t invalidHandle = 6;
constexpr std::int32_t moreData = 234;
constexpr std::int32_t noMoreItems = 259;

std::string text(std::int64_t number) {
  return std::to_string(number);
}

}  // namespace

Variant FakeRegistryHelper::GetValue(std::int32_t askedHive, const std::u16string& key,
                                     const std::u16string& name) {
  EXPECT_EQ(askedHive, hive);
  const std::string full = toUtf8(key) + "|" + toUtf8(name);
  log_.push_back("get " + full);
  if (full == broken) {
    throw RunTimeError(ErrorNumber::TypeMismatch, full + " cannot be read");
  }
  const auto found = values.find(full);
  return found == values.end() ? Variant{} : found->second;
}

SerialValue port(const std::string& deviceName, const std::string& portName) {
  return {deviceName, portName + '\0', 1};
}

std::int32_t FakeRegistryApi::RegOpenKeyExA(std::int32_t hive, const std::string& subKey,
                                            std::uint32_t options, std::uint32_t access,
                                            RegistryKey& key) {
  log_.push_back("open " + text(hive) + " " + subKey + " " + text(options) + " " + text(access));
  const std::int32_t result = openResult.at(access);
  if (result == success || handleInSpiteOfError) {
    key = handle;
    ++openKeys;
  }
  return result;
}

std::int32_t FakeRegistryApi::RegEnumValueA(RegistryKey key, std::uint32_t index, std::string& name,
                                            std::uint32_t& length) {
  log_.push_back("enum " + text(key) + " " + text(index) + " " + text(length));
  EXPECT_EQ(name.size(), length);
  if (walkBreaksAt == index) {
    return moreData;
  }
  if (index >= values.size()) {
    return noMoreItems;
  }
  const std::string& found = values[index].name;
  std::copy(found.begin(), found.end(), name.begin());
  length = static_cast<std::uint32_t>(found.size());
  return success;
}

std::int32_t FakeRegistryApi::RegQueryValueExA(RegistryKey key, const std::string& valueName,
                                               std::uint32_t& type, std::string* data,
                                               std::uint32_t& size) {
  log_.push_back("query " + text(key) + " " + valueName +
                 (data == nullptr ? " size" : " data " + text(size)));
  const auto value = std::find_if(values.begin(), values.end(),
                                  [&](const SerialValue& row) { return row.name == valueName; });
  if (key != handle) {
    return invalidHandle;
  }
  if (value == values.end()) {
    return notFound;
  }
  const std::int32_t ordered = data == nullptr ? sizeQueryResult : dataQueryResult;
  if (ordered != success) {
    return ordered;
  }
  if (data != nullptr && data->size() < value->data.size()) {
    return moreData;
  }
  type = value->type;
  size = static_cast<std::uint32_t>(value->data.size());
  if (data != nullptr) {
    std::copy(value->data.begin(), value->data.end(), data->begin());
  }
  return success;
}

std::int32_t FakeRegistryApi::RegCloseKey(RegistryKey key) {
  log_.push_back("close " + text(key));
  --openKeys;
  return key == handle ? success : accessDenied;
}

std::vector<std::u16string> PortsFixture::linesOf(std::vector<SerialValue> values,
                                                  std::int16_t showAll) {
  api.values = std::move(values);
  regEnum.ShowAllComPorts = showAll;
  enumerate();
  return lines();
}

std::vector<std::u16string> PortsFixture::lines() const {
  std::vector<std::u16string> all(static_cast<std::size_t>(regEnum.PortCount));
  for (std::size_t i = 0; i < all.size(); ++i) {
    all[i] = regEnum.PortLabels[i];
  }
  return all;
}

std::vector<std::int32_t> PortsFixture::numbers() const {
  std::vector<std::int32_t> all(static_cast<std::size_t>(regEnum.PortCount));
  for (std::size_t i = 0; i < all.size(); ++i) {
    all[i] = regEnum.PortNumbers[i];
  }
  return all;
}

void PortsFixture::addViator(int instance, const std::u16string& portName) {
  registry.values[R"(SYSTEM\ControlSet001\Enum\USB\VID_2458&PID_0001\)" + text(instance) +
                  "\\Device Parameters|PortName"] = portName;
}

void PortsFixture::addUsbser(int index, const std::u16string& path,
                             const std::u16string& portName) {
  registry.values[R"(SYSTEM\CurrentControlSet\Services\usbser\enum|)" + text(index)] = path;
  registry
      .values[R"(SYSTEM\CurrentControlSet\Enum\)" + toUtf8(path) + "\\Device Parameters|PortName"] =
      portName;
}

void PortsFixture::setUsbserCount(const Variant& count) {
  registry.values[R"(SYSTEM\CurrentControlSet\Services\usbser\enum|Count)"] = count;
}

}  // namespace tessara::testing
