#include "linux/SettingsPortNumbers.h"

#include "base/RunTimeError.h"
#include "linux/SettingsPorts.h"

namespace tessara {

std::map<std::int16_t, DeviceKey> SettingsPortNumbers::load() const {
  std::map<std::int16_t, DeviceKey> devices = unwritten_;
  for (const auto& [name, text] : store_.group(group).values) {
    const auto blank = text.find(' ');
    const std::string place = blank == std::string::npos ? "" : text.substr(blank + 1);
    const auto number = comPortNumber(name);
    if (number && !text.empty()) {
      devices.try_emplace(*number, DeviceKey{text.substr(0, blank), place});
    }
  }
  return devices;
}

void SettingsPortNumbers::store(std::int16_t number, const DeviceKey& device) {
  const std::string blankAndPlace = device.place.empty() ? "" : ' ' + device.place;
  try {
    store_.setValue(std::string(group) + "/COM" + std::to_string(number),
                    device.identity + blankAndPlace);
    unwritten_.erase(number);
  } catch (const RunTimeError&) {
    unwritten_[number] = device;
  }
}

}  // namespace tessara
