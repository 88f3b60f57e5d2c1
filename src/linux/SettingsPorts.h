#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "linux/PortProblems.h"
#include "linux/PortSource.h"
#include "linux/SettingsFormat.h"
#include "linux/SettingsStore.h"

namespace tessara {

/// The number in "COM9": 1 to 32767, but not 999, which stands for the USB NFC reader and is not a
/// port. Nothing for any other text.
std::optional<std::int16_t> comPortNumber(std::string_view text);

/// The ports entered by hand, in the group "Ports" of the settings, in the order of their numbers:
///
///     [Ports]
///     COM9\Device=/dev/pts/5
///     COM9\Name=\Device\Silabser9
///
/// A port without a name counts as a USB programming adapter. One with an empty device is switched
/// off.
///
/// What is wrong is reported at each look and left out: a setting that is neither COM<n>/Device nor
/// COM<n>/Name, and a port with an unusable value, with a name of more than 240 bytes or with a
/// name and no device.
class SettingsPorts final : public PortSource {
 public:
  static constexpr const char* group = portsGroup;

  explicit SettingsPorts(PortProblemSink report = {}) : report_(std::move(report)) {}

  /// Throws a RunTimeError if the settings cannot be read.
  [[nodiscard]] std::vector<KnownPort> ports() const override;

 private:
  SettingsStore store_;
  PortProblemSink report_;
};

}  // namespace tessara
