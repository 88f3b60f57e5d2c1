#pragma once

#include <cstdint>

namespace tessara {

/// What a catalogue lookup found. Newer and older are seen from the module: its firmware is newer
/// or older than the version that the catalogue names last.
enum class CatalogResult : std::uint8_t {
  /// The catalogue is missing, unreadable or not well-formed.
  CatalogFileError = 0,
  /// No family and device of the catalogue carry the module's numbers.
  CatalogNoDevice = 1,
  /// The device is known, its firmware cannot be placed.
  CatalogNoVersion = 2,
  CatalogFwNewer = 3,
  CatalogExact = 4,
  CatalogFwOlder = 5,
};

}  // namespace tessara
