#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/RegistryApi.h"
#include "platform/RegistryHelper.h"
#include "ports/RegEnum.h"

namespace tessara::testing {

using Log = std::vector<std::string>;

/// Values by "key|name"; every read is in the log as "get key|name".
class FakeRegistryHelper : public RegistryHelper {
 public:
  static constexpr std::int32_t hive = 77;

  explicit FakeRegistryHelper(Log& log) : log_(log) {}

  [[nodiscard]] std::int32_t ValueTypeNumber() const override { return 4; }
  [[nodiscard]] std::int32_t HKeyCurrentUser() const override { return 1; }
  [[nodiscard]] std::int32_t HKeyLocalMachine() const override { return hive; }
  void SetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                const std::u16string& /*name*/, const Variant& /*value*/,
                std::int32_t /*valueType*/) override {
    log_.emplace_back("set");
  }
  [[nodiscard]] Variant GetValue(std::int32_t askedHive, const std::u16string& key,
                                 const std::u16string& name) override;

  std::map<std::string, Variant> values;
  /// Reading this one raises a type mismatch.
  std::string broken;

 private:
  Log& log_;
};

/// One value of the key of serial ports.
struct SerialValue {
  std::string name;
  std::string data;
  std::uint32_t type = 1;
};

/// The value of a port as the system keeps it, final zero included.
SerialValue port(const std::string& deviceName, const std::string& portName);

/// The key of serial ports, with every call and its arguments in the log.
class FakeRegistryApi : public RegistryApi {
 public:
  explicit FakeRegistryApi(Log& log) : log_(log) {}

  std::int32_t RegOpenKeyExA(std::int32_t hive, const std::string& subKey, std::uint32_t options,
                             std::uint32_t access, RegistryKey& key) override;
  std::int32_t RegEnumValueA(RegistryKey key, std::uint32_t index, std::string& name,
                             std::uint32_t& length) override;
  std::int32_t RegQueryValueExA(RegistryKey key, const std::string& valueName, std::uint32_t& type,
                                std::string* data, std::uint32_t& size) override;
  std::int32_t RegCloseKey(RegistryKey key) override;

  std::vector<SerialValue> values;
  /// What opening gives for each of the two access rights.
  std::map<std::uint32_t, std::int32_t> openResult{{0x20019, 0}, {0x3F, 0}};
  /// Opening leaves a usable handle even where it gives an error.
  bool handleInSpiteOfError = false;
  /// What the query for type and size, and the one for the data, give.
  std::int32_t sizeQueryResult = 0;
  std::int32_t dataQueryResult = 0;
  /// The index at which the walk over the names breaks off with error 234; none if not set.
  std::optional<std::uint32_t> walkBreaksAt;
  std::int32_t openKeys = 0;

 private:
  Log& log_;
};

/// A machine with no serial port and no USB device, and an empty port list.
class PortsFixture : public ::testing::Test {
 protected:
  void enumerate() { EnumerateComPorts(regEnum, registry, api); }

  /// The lines after an enumeration of these ports.
  std::vector<std::u16string> linesOf(std::vector<SerialValue> values, std::int16_t showAll = 0);
  [[nodiscard]] std::vector<std::u16string> lines() const;
  [[nodiscard]] std::vector<std::int32_t> numbers() const;

  void addViator(int instance, const std::u16string& portName);
  /// Lists the device as instance `index` of usbser, with its port.
  void addUsbser(int index, const std::u16string& path, const std::u16string& portName);
  void setUsbserCount(const Variant& count);

  template <typename Call>
  static std::int32_t errorOf(Call call) {
    try {
      call();
    } catch (const RunTimeError& error) {
      return static_cast<std::int32_t>(error.number());
    }
    ADD_FAILURE() << "no run-time error was raised";
    return 0;
  }

  Log log;
  FakeRegistryHelper registry{log};
  FakeRegistryApi api{log};
  RegEnum regEnum;
};

}  // namespace tessara::testing
