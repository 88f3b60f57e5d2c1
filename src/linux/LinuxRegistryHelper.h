#pragma once

#include <functional>

#include "linux/SettingsStore.h"
#include "platform/Locale.h"
#include "platform/RegistryHelper.h"

namespace tessara {

/// The registry as a Linux system can offer it:
/// - the settings key of the local machine is the group "Settings" of the settings file;
/// - sDecimal of the user's international settings is the decimal separator of the locale;
/// - every other key of the local machine is answered by whoever knows the devices.
///
/// What comes from the settings file is text, numbers too. Only settings can be written.
class LinuxRegistryHelper final : public RegistryHelper {
 public:
  /// Gives the value of a key of the local machine, or nothing.
  using DeviceLookup =
      std::function<Variant(const std::u16string& key, const std::u16string& name)>;

  static constexpr const char* settingsGroup = "Settings";

  /// `locale` has to outlive the helper. With `keepsSettings` false, settings that are written are
  /// dropped.
  LinuxRegistryHelper(const Locale& locale, DeviceLookup lookup, bool keepsSettings = true);

  [[nodiscard]] std::int32_t ValueTypeNumber() const override { return 4; }
  [[nodiscard]] std::int32_t HKeyCurrentUser() const override { return hiveNumber(0x80000001); }
  [[nodiscard]] std::int32_t HKeyLocalMachine() const override { return hiveNumber(0x80000002); }

  void SetValue(std::int32_t hive, const std::u16string& key, const std::u16string& name,
                const Variant& value, std::int32_t valueType) override;
  [[nodiscard]] Variant GetValue(std::int32_t hive, const std::u16string& key,
                                 const std::u16string& name) override;

 private:
  /// Hives are numbered from the top of the unsigned range and travel as signed numbers.
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
