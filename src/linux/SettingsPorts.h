#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "linux/PortSource.h"
#include "linux/SettingsStore.h"

namespace tessara {

/// The number in "COM9": 1 to 32767, but for 999, which stands for the USB NFC reader and for no
/// port. Nothing for any other text.
std::optional<std::int16_t> comPortNumber(std::string_view text);

/// Ports that somebody has entered by hand, in the group "Ports" of the settings:
///
///     [Ports]
///     COM9\Device=/dev/pts/5
///     COM9\Name=\Device\Silabser9
///
/// A port without a name counts as a USB programming adapter, one without a device is none. They
/// are offered in the order of their numbers.
///
/// A name in the group that is neither COM<n>/Device nor COM<n>/Name, and a port's name of more
/// than 240 bytes, is a RunTimeError.
class SettingsPorts final : public PortSource {
 public:
  static constexpr const char* group = "Ports";

  [[nodiscard]] std::vector<KnownPort> ports() const override;

 private:
  SettingsStore store_;
};

}  // namespace tessara
