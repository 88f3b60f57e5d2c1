#pragma once

#include <cstdint>
#include <string>

namespace tessara {

/// What a catalogue lookup stores in the control. Nothing here is ever cleared: a lookup writes
/// only what it finds, so the values of an earlier module stay until another one replaces them.
struct DeviceProfile {
  /// Register numbers of the status words, from the entry of the exact firmware version; 0 before
  /// the first exact match.
  std::int32_t RegDevStatus = 0;
  std::int32_t RegChnIn = 0;
  std::int32_t RegChnOut = 0;
  std::int32_t RegDevError = 0;
  std::int32_t RegLedStatus = 0;
  std::int32_t RegReserved = 0;
  /// Mode values for the host; the control does not use them.
  std::int32_t StringsReverse = 1;
  std::int32_t QuickSetupMode = 0;
  /// 1 hides the firmware row of the panel.
  std::int32_t HideFwVersion = 0;
  /// Links to the module's documents; the data sheet is the one in the user's language.
  std::u16string PackbLink;
  std::u16string DatasheetLink;
  std::u16string ProductLink;
};

}  // namespace tessara
