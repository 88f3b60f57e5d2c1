#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "localisation/TextTables.h"

namespace tessara {

/// One section of a language file and the table that it fills.
struct LanguageSection {
  /// The line that starts it, to the letter.
  std::u16string_view header;
  /// The maximum number of texts in the table.
  std::size_t slots;
  /// Entry `index` of the table; a subscript error (9) past its slots.
  std::u16string& (*entry)(TextTables& tables, std::size_t index);
};

/// The section of the only table that is a single string.
inline constexpr std::u16string_view titleHeader = u"[Title]";

/// All sections, in the order in which complete files have them.
extern const std::array<LanguageSection, 5> languageSections;

/// The section that a line starts; null if the line is not a header.
const LanguageSection* findLanguageSection(std::u16string_view line);

}  // namespace tessara
