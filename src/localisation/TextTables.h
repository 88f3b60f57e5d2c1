#pragma once

#include <cstddef>
#include <string>

#include "base/FixedTable.h"

namespace tessara {

/// A table of texts, initially empty.
template <std::size_t Slots>
using TextTable = FixedTable<std::u16string, Slots>;

/// All texts that the control shows in the language of the user. A text is identified by its table
/// and its index from 0; callers join the parts of a sentence themselves.
struct TextTables {
  /// The title of every message box.
  std::u16string AppTitle;
  TextTable<31> TextMainFrame{"TextMainFrame"};
  TextTable<31> TextModulInfo{"TextModulInfo"};
  TextTable<4> TextButtons{"TextButtons"};
  TextTable<41> TextStatus{"TextStatus"};
};

/// Writes the built-in German wording: the title and all entries that have a default. Slots without
/// a default stay as they are.
void LoadDefaultTexts(TextTables& tables);

}  // namespace tessara
