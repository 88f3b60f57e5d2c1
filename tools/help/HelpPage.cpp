#include "tools/help/HelpPage.h"

#include <QRegularExpression>
#include <algorithm>
#include <optional>
#include <sstream>

#include "base/Text.h"
#include "localisation/LanguageSections.h"
#include "tools/help/HtmlText.h"

namespace tessara {
namespace {

std::vector<std::string> wordsOf(const std::string& list) {
  std::vector<std::string> words;
  std::istringstream parts(list);
  for (std::string word; std::getline(parts, word, ';');) {
    word.erase(0, word.find_first_not_of(' '));
    words.push_back(word);
  }
  return words;
}

/// The text of an entry of the language file, such as "ModulInfo" and 8; nothing if there is none.
std::optional<std::string> languageText(TextTables& texts, const std::string& section,
                                        std::size_t index) {
  const auto* found = findLanguageSection(fromUtf8("[" + section + "]"));
  if (found == nullptr || index >= found->slots || found->entry(texts, index).empty()) {
    return std::nullopt;
  }
  return toUtf8(found->entry(texts, index));
}

bool isLocal(const std::string& target) {
  return target.find(':') == std::string::npos;
}

class PageReader {
 public:
  PageReader(HelpPage& page, TextTables& texts, std::vector<FileProblem>& problems)
      : page_(page), texts_(texts), problems_(problems) {}

  void take(std::string line) {
    ++line_;
    line = withTexts(line);
    gatherTargets(line);
    page_.body += withPlainHeading(line) + "\n";
  }

  void finish() {
    line_ = 1;
    const auto pages = std::count_if(page_.headings.begin(), page_.headings.end(),
                                     [](const HelpHeading& heading) { return heading.level == 1; });
    if (pages != 1 || page_.headings.front().level != 1) {
      problem("a page must begin with its only <h1>");
    }
  }

 private:
  void problem(std::string message) { problems_.push_back({line_, std::move(message)}); }

  std::string withTexts(std::string line) {
    static const QRegularExpression mark(R"(\{\{(\w+) (\d{1,3})\}\})");
    const QString source = QString::fromStdString(line);
    QString filled;
    qsizetype end = 0;
    for (const QRegularExpressionMatch& found : mark.globalMatch(source)) {
      const auto text =
          languageText(texts_, found.captured(1).toStdString(), found.captured(2).toUInt());
      if (!text) {
        problem("no language file has " + found.captured().toStdString());
      }
      filled += source.mid(end, found.capturedStart() - end) +
                QString::fromStdString(asHtml(text.value_or("")));
      end = found.capturedEnd();
    }
    line = (filled + source.mid(end)).toStdString();
    const auto rest = line.find("{{");
    if (rest != std::string::npos && line.find(contentsMark) != rest) {
      problem("unknown placeholder \"" + line.substr(rest) + "\"");
    }
    return line;
  }

  /// Stores the heading of the line, if any, and returns the line without its data-index.
  std::string withPlainHeading(const std::string& line) {
    static const QRegularExpression heading(
        R"rx(<h([12])(?: id="([^"]+)")?(?: data-index="([^"]+)")?>(.*)</h\1>)rx");
    const QRegularExpressionMatch found = heading.match(QString::fromStdString(line));
    if (!found.hasMatch()) {
      if (line.find("<h1") != std::string::npos || line.find("<h2") != std::string::npos) {
        problem("a heading must be on one line, with id and data-index in this order");
      }
      return line;
    }
    const auto part = [&](int number) { return found.captured(number).toStdString(); };
    const int level = part(1) == "1" ? 1 : 2;
    const std::string anchor = part(2);
    if ((level == 2) == anchor.empty()) {
      problem("a section needs an id, a page title has none");
    } else if (page_.hasAnchor(anchor)) {
      problem("duplicate id " + anchor);
    }
    page_.headings.push_back({level, anchor, withoutTags(part(4)), wordsOf(part(3))});
    std::string plain = line;
    if (const auto index = plain.find(" data-index="); index != std::string::npos) {
      plain.erase(index, plain.find('>', index) - index);
    }
    return plain;
  }

  void gatherTargets(const std::string& line) {
    static const QRegularExpression target(R"rx((src|href)="([^"]*)")rx");
    for (const QRegularExpressionMatch& found : target.globalMatch(QString::fromStdString(line))) {
      const std::string name = found.captured(2).toStdString();
      if (found.captured(1) == "src") {
        page_.pictures.insert(name);
      } else if (isLocal(name)) {
        page_.links.emplace_back(line_, name);
      }
    }
  }

  HelpPage& page_;
  TextTables& texts_;
  std::vector<FileProblem>& problems_;
  std::size_t line_ = 0;
};

}  // namespace

bool HelpPage::hasAnchor(const std::string& anchor) const {
  return std::any_of(headings.begin(), headings.end(), [&](const HelpHeading& heading) {
    return !anchor.empty() && heading.anchor == anchor;
  });
}

HelpPage readHelpPage(const std::string& name, const std::string& source, TextTables& texts,
                      std::vector<FileProblem>& problems) {
  HelpPage page;
  page.name = name;
  PageReader reader(page, texts, problems);
  std::istringstream lines(source);
  for (std::string line; std::getline(lines, line);) {
    reader.take(std::move(line));
  }
  reader.finish();
  return page;
}

}  // namespace tessara
