#include "linux/LinuxRegistryHelper.h"

#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "localisation/Settings.h"

namespace tessara {

namespace {

constexpr const char16_t* internationalKey = u"Control Panel\\International\\";
constexpr const char16_t* decimalName = u"sDecimal";

std::string settingName(const std::u16string& name) {
  return std::string(LinuxRegistryHelper::settingsGroup) + '/' + toUtf8(name);
}

}  // namespace

LinuxRegistryHelper::LinuxRegistryHelper(const Locale& locale, DeviceLookup lookup,
                                         bool keepsSettings)
    : locale_(locale), lookup_(std::move(lookup)), keepsSettings_(keepsSettings) {}

bool LinuxRegistryHelper::isSettingsKey(std::int32_t hive, const std::u16string& key) const {
  return hive == HKeyLocalMachine() && key == settingsKey;
}

void LinuxRegistryHelper::SetValue(std::int32_t hive, const std::u16string& key,
                                   const std::u16string& name, const Variant& value,
                                   std::int32_t /*valueType*/) {
  if (!isSettingsKey(hive, key)) {
    throw RunTimeError(ErrorNumber::InvalidCall, "The value " + toUtf8(name) + " of the key " +
                                                     toUtf8(key) +
                                                     " cannot be written: it is not a setting");
  }
  if (keepsSettings_) store_.setValue(settingName(name), toUtf8(toText(value, u".")));
}

Variant LinuxRegistryHelper::GetValue(std::int32_t hive, const std::u16string& key,
                                      const std::u16string& name) {
  if (isSettingsKey(hive, key)) {
    const auto text = store_.value(settingName(name));
    return text ? Variant(fromUtf8(*text)) : Variant();
  }
  if (hive == HKeyCurrentUser() && key == internationalKey && name == decimalName) {
    return locale_.decimalSeparator();
  }
  return hive == HKeyLocalMachine() ? lookup_(key, name) : Variant();
}

}  // namespace tessara
