#pragma once

#include <set>
#include <string>
#include <vector>

#include "base/FileProblem.h"
#include "localisation/TextTables.h"

namespace tessara {

/// A heading of a page, for contents and index.
struct HelpHeading {
  /// 1 for the page itself, 2 for a section.
  int level = 1;
  /// The anchor of a section; empty for the page.
  std::string anchor;
  /// Plain text, UTF-8.
  std::string text;
  /// Additional index entries for the heading.
  std::vector<std::string> keywords;
};

/// A page of the help, from its source.
///
/// The source is the body of an HTML page. It begins with its only `<h1>`; sections are
/// `<h2 id="anchor">`. Both may have `data-index="word; another word"` as the last attribute, for
/// the index. A heading must be on one line. `{{ModulInfo 8}}` stands for a text of the language
/// file, by section and number, and `{{contents}}` for the list of all pages.
struct HelpPage {
  /// Without ".html".
  std::string name;
  /// HTML with the texts of the language inserted, without the list of pages.
  std::string body;
  std::vector<HelpHeading> headings;
  /// The local files that the page shows or links to: "panel.png", "ports.html#permission".
  std::set<std::string> pictures;
  std::vector<std::pair<std::size_t, std::string>> links;

  [[nodiscard]] std::string title() const {
    return headings.empty() ? std::string() : headings.front().text;
  }
  /// True if the page has a section with that anchor.
  [[nodiscard]] bool hasAnchor(const std::string& anchor) const;
};

/// The placeholder for the list of all pages.
inline constexpr auto contentsMark = "{{contents}}";

/// Reads a page and adds its problems to `problems`.
HelpPage readHelpPage(const std::string& name, const std::string& source, TextTables& texts,
                      std::vector<FileProblem>& problems);

}  // namespace tessara
