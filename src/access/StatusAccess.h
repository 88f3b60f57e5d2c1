#pragma once

namespace tessara {

/// What differs between the accesses that read the status of a module and show it.
struct StatusAccess {
  /// The error word is read twice, with a delay before each read, and only the second value counts:
  /// the first belongs to the measuring system's previous cycle. Otherwise it is read once, without
  /// delay.
  bool readsErrorWordTwice = false;
  /// The note on USB power is also shown over an NFC reader.
  bool notesUsbPowerOverNfc = false;
  /// The event loop gets turns between requests.
  bool yields = false;
  /// A HART module that gives no reply is shown as being without fault. Otherwise its labels are
  /// cleared and nothing else changes.
  bool treatsSilenceAsHealthy = false;
};

inline constexpr StatusAccess statusOfRead{.readsErrorWordTwice = true,
                                           .notesUsbPowerOverNfc = true};
inline constexpr StatusAccess statusOfScan{.yields = true, .treatsSilenceAsHealthy = true};
inline constexpr StatusAccess statusOfQuery{};

}  // namespace tessara
