#pragma once

#include <string>
#include <vector>

#include "base/FileProblem.h"

namespace tessara {

/// The properties of the help of one language: the file `help.txt` beside its pages.
///
///     # a comment
///     title = Module information - help
///     language = 0x0409 English (United States)
///     htmlLanguage = en
///     contents = Contents
///     back = Back
///     next = Next
///     page = index
///     page = first-read
///
/// All texts are UTF-8. Blank lines and lines that start with # are ignored.
struct HelpPlan {
  /// The title of the help window; ASCII, since viewers use different encodings.
  std::string title;
  /// Number and name of the language in help files.
  std::string language;
  /// The language code in HTML.
  std::string htmlLanguage;
  /// The labels of the links to the first, the previous and the next page.
  std::string contents;
  std::string back;
  std::string next;
  /// The names of the pages without ".html", in reading order. The first holds the contents.
  std::vector<std::string> pages;
};

/// Reads a plan and adds its problems to `problems`.
HelpPlan readHelpPlan(const std::string& text, std::vector<FileProblem>& problems);

}  // namespace tessara
