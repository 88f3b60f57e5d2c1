#include "SettingNames.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string_view>

#include "linux/LinuxRegistryHelper.h"
#include "linux/SettingsPorts.h"

namespace tessara {

namespace {

/// A setting that is a number, with its range.
struct NumberSetting {
  std::string_view name;
  int lowest;
  int highest;
};

constexpr std::array<NumberSetting, 5> numberSettings{
    {{"Language", 0, 11},
     {"COM Port", 1, std::numeric_limits<std::int16_t>::max()},
     {"ShowBaudrateSelection", 0, 1},
     {"ShowAddressSelection", 0, 1},
     {"ShowAllComPorts", 0, 1}}};

constexpr std::array<std::string_view, 2> textSettings{"Logo", "Icon"};

const std::string portsPrefix = std::string(SettingsPorts::group) + '/';

bool isPortSetting(const std::string& name) {
  const auto slash = name.rfind('/');
  if (!name.starts_with(portsPrefix) || slash < portsPrefix.size()) return false;
  const std::string entry = name.substr(slash + 1);
  return comPortNumber(name.substr(portsPrefix.size(), slash - portsPrefix.size())) &&
         (entry == "Device" || entry == "Name");
}

std::string unknownSetting(const std::string& name) {
  std::string known;
  for (const auto& setting : numberSettings) known += std::string(setting.name) + ", ";
  for (const auto& setting : textSettings) known += std::string(setting) + ", ";
  return '"' + name + "\" is not a setting; the settings are " + known +
         "Ports/COM<n>/Device and Ports/COM<n>/Name";
}

}  // namespace

std::string settingKey(const std::string& name) {
  return name.starts_with(portsPrefix)
             ? name
             : std::string(LinuxRegistryHelper::settingsGroup) + '/' + name;
}

std::string settingProblem(const std::string& name, const std::string& text) {
  const auto* number = std::find_if(numberSettings.begin(), numberSettings.end(),
                                    [&](const NumberSetting& one) { return one.name == name; });
  if (number == numberSettings.end()) {
    const bool isText =
        std::find(textSettings.begin(), textSettings.end(), name) != textSettings.end();
    return isText || isPortSetting(name) ? "" : unknownSetting(name);
  }
  if (text.empty()) return "";
  int value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  const bool isNumber = error == std::errc() && stop == end;
  if (isNumber && value >= number->lowest && value <= number->highest) return "";
  return name + " must be a number from " + std::to_string(number->lowest) + " to " +
         std::to_string(number->highest) + ", not \"" + text + '"';
}

}  // namespace tessara
