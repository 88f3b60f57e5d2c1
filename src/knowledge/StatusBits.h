#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "localisation/TextTables.h"

namespace tessara {

/// The entry of `TextStatus` for a state without a fault.
inline constexpr std::size_t noErrorText = 0;

/// One row of a status table: a bit of a status word and its meaning.
struct StatusBit {
  std::uint16_t bit = 0;
  /// The entry of `TextStatus`; none where the text is the same in all languages.
  std::optional<std::size_t> entry;
  /// Text that follows the entry in all languages.
  std::u16string_view fixed = {};
  /// The families that the row applies to; empty for all that no earlier row of the bit names.
  std::span<const std::int16_t> families = {};
};

/// What comes before and after each text of a line.
struct Connectors {
  std::u16string_view before;
  std::u16string_view after;
};

/// Appends the text of every bit of `word` that is set, in the order of `table`.
void appendStatusTexts(std::u16string& line, std::int16_t word, std::int16_t familyID,
                       std::span<const StatusBit> table, Connectors connectors,
                       const TextTables& texts);

}  // namespace tessara
