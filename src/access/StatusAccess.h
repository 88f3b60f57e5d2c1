#pragma once

namespace tessara {

/// What differs between the accesses that read the status of a module and show it.
struct StatusAccess {
  /// The error word is read twice, with a delay before each time, and only the second value counts:
  /// the first is that of the measuring system's last cycle. Otherwise it is read once, at once.
  bool readsErrorWordTwice = false;
  /// The note on USB power is also shown over an NFC reader.
  bool notesUsbPowerOverNfc = false;
  /// The event loop gets a turn between the requests.
  bool yields = false;
  /// A HART module without a reply is shown as one without fault. Otherwise its labels are emptied
  /// and everything else stays.
  bool takesSilenceForGood = false;
};

inline constexpr StatusAccess statusOfRead{.readsErrorWordTwice = true,
                                           .notesUsbPowerOverNfc = true};
inline constexpr StatusAccess statusOfScan{.yields = true, .takesSilenceForGood = true};
inline constexpr StatusAccess statusOfQuery{};

}  // namespace tessara
