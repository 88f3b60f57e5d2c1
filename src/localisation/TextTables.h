#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/RunTimeError.h"

namespace tessara {

/// A table of texts with a fixed number of slots, all empty at first. Every access checks the
/// index; one past the end is a subscript error (9) that names the table.
template <std::size_t Slots>
class TextTable {
 public:
  explicit constexpr TextTable(const char* name) : name_(name) {}

  [[nodiscard]] static constexpr std::size_t slots() { return Slots; }

  const std::u16string& operator[](std::size_t index) const {
    check(index);
    return texts_[index];
  }
  std::u16string& operator[](std::size_t index) {
    check(index);
    return texts_[index];
  }

 private:
  void check(std::size_t index) const {
    if (index >= Slots) {
      throw RunTimeError(ErrorNumber::Subscript, std::string(name_) + " has no entry " +
                                                     std::to_string(index) + ", only 0 to " +
                                                     std::to_string(Slots - 1));
    }
  }

  const char* name_;
  std::array<std::u16string, Slots> texts_;
};

/// Every word that the control shows in the language of the user. A text is named by its table and
/// its index from 0; readers join the pieces of a sentence themselves.
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
