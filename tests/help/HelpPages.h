#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tools/help/HtmlText.h"

namespace tessara::testing {

/// The source of a page as it was built.
inline std::string pageSource(const std::filesystem::path& page) {
  std::ifstream file(page, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The words of a piece of HTML, each gap between them a single blank.
inline std::string plainWords(const std::string& html) {
  std::string plain;
  for (const char sign : withoutTags(html)) {
    const char shown = sign == '\n' ? ' ' : sign;
    if (shown != ' ' || !plain.ends_with(' ')) {
      plain += shown;
    }
  }
  return plain;
}

/// All words of the pages of a help.
inline std::string wordsOfPages(const std::filesystem::path& folder) {
  std::string words;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".html") {
      words += plainWords(pageSource(entry.path())) + " ";
    }
  }
  return words;
}

}  // namespace tessara::testing
