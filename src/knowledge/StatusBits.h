#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "localisation/TextTables.h"

namespace tessara {

/// One row of a status table: a bit of a status word and what it tells.
struct StatusBit {
  std::uint16_t bit = 0;
  /// The entry of `TextStatus`; none where the text is the same in all languages.
  std::optional<std::size_t> entry;
  /// Text that stands behind the entry in all languages.
  std::u16string_view fixed = {};
  /// The families that the row holds for; empty for all that no earlier row of the bit names.
  std::span<const std::int16_t> families = {};
};

/// What stands before and behind each text of a line.
struct Connectors {
  std::u16string_view before;
  std::u16string_view behind;
};

/// Appends the text of every bit of `word` that is set, in the order of `table`.
void appendStatusTexts(std::u16string& line, std::int16_t word, std::int16_t familyID,
                       std::span<const StatusBit> table, Connectors connectors,
                       const TextTables& texts);

}  // namespace tessara
