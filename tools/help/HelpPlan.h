#pragma once

#include <string>
#include <vector>

#include "base/FileProblem.h"

namespace tessara {

/// What holds for the help of one language as a whole: the file `help.txt` beside its pages.
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
/// All texts are UTF-8. Blank lines and lines that start with # count for nothing.
struct HelpPlan {
  /// The title of the help file's window; ASCII, since viewers do not agree on more.
  std::string title;
  /// Number and name of the language as help files call it.
  std::string language;
  /// The language as HTML calls it.
  std::string htmlLanguage;
  /// What stands for the way to the first page, to the page before and to the one behind.
  std::string contents;
  std::string back;
  std::string next;
  /// The names of the pages without ".html", in the order of reading. The first holds the contents.
  std::vector<std::string> pages;
};

/// Takes a plan from its text and adds what is wrong with it to `problems`.
HelpPlan readHelpPlan(const std::string& text, std::vector<FileProblem>& problems);

}  // namespace tessara
