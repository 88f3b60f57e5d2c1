#pragma once

#include <map>

#include "linux/SettingsStore.h"
#include "linux/ports/PortNumbers.h"

namespace tessara {

/// Keeps the number of each device in the group "PortNumbers" of the settings, one line per device:
/// its identity and, after a blank, the place where it is plugged in.
///
///     [PortNumbers]
///     COM3=10c4:ea60:0001:00 pci0000:00/0000:00:14.0/usb-2.1
///
/// Other settings in the group are ignored and kept.
class SettingsPortNumbers final : public PortNumbers {
 public:
  static constexpr const char* group = "PortNumbers";

  [[nodiscard]] std::map<std::int16_t, DeviceKey> load() const override;
  void store(std::int16_t number, const DeviceKey& device) override;

 private:
  SettingsStore store_;
  /// The numbers that could not be written.
  std::map<std::int16_t, DeviceKey> unwritten_;
};

}  // namespace tessara
