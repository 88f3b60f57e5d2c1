#pragma once

#include <cstdint>

namespace tessara {

/// The result of a catalogue lookup. Newer and older refer to the module: its firmware is newer or
/// older than the version that the catalogue lists last.
enum class CatalogResult : std::uint8_t {
  /// The catalogue is missing, unreadable or not well-formed.
  CatalogFileError = 0,
  /// No family and device of the catalogue have the module's numbers.
  CatalogNoDevice = 1,
  /// The device is listed, but its firmware is neither listed nor newer or older.
  CatalogNoVersion = 2,
  CatalogFwNewer = 3,
  CatalogExact = 4,
  CatalogFwOlder = 5,
};

}  // namespace tessara
