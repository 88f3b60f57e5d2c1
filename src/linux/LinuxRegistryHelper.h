#pragma once

#include <functional>

#include "linux/SettingsStore.h"
#include "platform/Locale.h"
#include "platform/RegistryHelper.h"

namespace tessara {

/// The registry as a Linux system can offer it:
/// - the settings key of the local machine is the group "Settings" of the settings file;
/// - sDecimal of the user's international settings is the decimal separator of the locale;
/// - every other key of the local machine is left to a lookup that knows the devices.
///
/// Values from the settings file are text, numbers included. Only settings can be written; writing
/// anything else is error 5. Errors of the settings store pass to the caller: 75 for a file that
/// cannot be read or written, 13 for a value that is neither text nor a number.
class LinuxRegistryHelper final : public RegistryHelper {
 public:
  /// Returns the value of a key of the local machine, or nothing.
  using DeviceLookup =
      std::function<Variant(const std::u16string& key, const std::u16string& name)>;

  static constexpr const char* settingsGroup = "Settings";

  /// `locale` must outlive the helper. With `keepsSettings` false, written settings are dropped.
  LinuxRegistryHelper(const Locale& locale, DeviceLookup lookup, bool keepsSettings = true);

  [[nodiscard]] std::int32_t ValueTypeNumber() const override { return 4; }
  [[nodiscard]] std::int32_t HKeyCurrentUser() const override { return hiveNumber(0x80000001); }
  [[nodiscard]] std::int32_t HKeyLocalMachine() const override { return hiveNumber(0x80000002); }

  void SetValue(std::int32_t hive, const std::u16string& key, const std::u16string& name,
                const Variant& value, std::int32_t valueType) override;
  [[nodiscard]] Variant GetValue(std::int32_t hive, const std::u16string& key,
                                 const std::u16string& name) override;

 private:
  /// Hive numbers have the top bit set and are passed as signed numbers.
  static constexpr std::int32_t hiveNumber(std::uint32_t number) {
    return static_cast<std::int32_t>(number);
  }
  [[nodiscard]] bool isSettingsKey(std::int32_t hive, const std::u16string& key) const;

  const Locale& locale_;
  DeviceLookup lookup_;
  bool keepsSettings_;
  SettingsStore store_;
};

}  // namespace tessara
