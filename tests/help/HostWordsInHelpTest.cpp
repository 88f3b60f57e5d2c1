#include <QRegularExpression>
#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "HelpPages.h"
#include "PanelWords.h"

namespace tessara::testing {
namespace {

constexpr QChar ellipsis(0x2026);

/// A help; the language of its pages is that of the sources or of the German translation.
struct HelpOfHost {
  const char* name;
  bool isTranslated;
  const char* folder;
  /// What precedes the name of a column.
  const char* column;
};

/// The words of modulinfo-panel, compared with the pages that quote them.
class HostWordsInHelp : public ::testing::TestWithParam<HelpOfHost> {
 protected:
  [[nodiscard]] static QString page(const char* name) {
    return QString::fromStdString(
        pageSource(std::filesystem::path(TESSARA_BIN) / GetParam().folder / name));
  }
  [[nodiscard]] static QString wordsOfPage(const char* name) {
    return QString::fromStdString(plainWords(page(name).toStdString()));
  }
  /// The texts of that column, counted from 0, of the tables of a section.
  [[nodiscard]] static QStringList cells(const char* name, const QString& section, int column) {
    const QString text = page(name).section("id=\"" + section + '"', 1).section("<h2", 0, 0);
    const QRegularExpression row("<tr>(<td.*?)</tr>",
                                 QRegularExpression::DotMatchesEverythingOption);
    QStringList found;
    for (const QRegularExpressionMatch& match : row.globalMatch(text)) {
      const QString cell = match.captured(1).section("<td", column + 1, column + 1).section('>', 1);
      found += QString::fromStdString(plainWords(cell.toStdString()));
    }
    return found;
  }
  /// The word as the help quotes it: without access key and dots, with dots for its places.
  [[nodiscard]] QString plain(const char* context, const char* source) const {
    return plain({context, source});
  }
  [[nodiscard]] QString plain(const PanelWord& word) const {
    static const QRegularExpression place("%\\d");
    QString text = GetParam().isTranslated ? words.at(word) : word.second;
    // A word that is not in the files would be compared with nothing but this test.
    EXPECT_TRUE(words.contains(word)) << word.second.toStdString();
    text.remove('&').remove(ellipsis);
    return text.trimmed().replace(place, ellipsis);
  }
  std::map<PanelWord, QString> words = wordsOf(TESSARA_TRANSLATIONS "/modulinfo-panel_de.ts");
};

INSTANTIATE_TEST_SUITE_P(InEachLanguage, HostWordsInHelp,
                         ::testing::Values(HelpOfHost{"German", true, "Help_049", "Spalte "},
                                           HelpOfHost{"English", false, "Help_001", "column "}),
                         [](const auto& help) { return std::string(help.param.name); });

TEST_P(HostWordsInHelp, QuoteMessagesAsTheyAre) {
  const QStringList quoted = cells("messages.html", "host", 0);
  EXPECT_GE(quoted.size(), 9);
  for (const QString& message : quoted.join(" / ").split(" / ")) {
    EXPECT_TRUE(std::any_of(words.begin(), words.end(), [&](const auto& word) {
      return plain(word.first).startsWith(message);
    })) << message.toStdString();
  }
}

TEST_P(HostWordsInHelp, CoverEveryMessage) {
  const QString covered = wordsOfPage("messages.html");
  const std::set<QString> kinds{
      "an object", "a text", "true or false", "a date and time", "a whole number from %1 to %2",
      "one of %1"};
  std::size_t messages = 0;
  for (const auto& [word, translation] : words) {
    const QString text = plain(word);
    if (word.first == "PanelWindow") {
      EXPECT_TRUE(covered.contains(text)) << text.toStdString();
      ++messages;
    }
    if (word.first == "RecordError" && !kinds.contains(word.second)) {
      // Without its details.
      EXPECT_TRUE(covered.contains(text.section(':', 0, 0))) << text.toStdString();
      ++messages;
    }
  }
  EXPECT_EQ(messages, 13U);
}

TEST_P(HostWordsInHelp, DescribeTheLightAsItsToolTipDoes) {
  const QStringList described = cells("status-line.html", "light", 1);
  std::set<QString> descriptions;
  for (const auto& [word, translation] : words) {
    if (word.first == "ActivityLight" && word.second != "Host busy") {
      descriptions.insert(plain(word));
    }
  }
  EXPECT_EQ(std::set<QString>(described.begin(), described.end()), descriptions);
}

TEST_P(HostWordsInHelp, NameTheMenusAsTheyAre) {
  const QString records = wordsOfPage("records.html");
  for (const char* entry :
       {"&Save record…", "&Open record…", "&Print…", "Save as P&DF…", "&Copy as text"}) {
    const QString path = plain("PanelMenu", "&File") + ", " + plain("PanelMenu", entry);
    EXPECT_TRUE(records.contains(path)) << path.toStdString();
  }
  EXPECT_TRUE(wordsOfPage("events.html")
                  .contains(plain("PanelMenu", "&View") + ", " + plain("PanelMenu", "&Events")));
}

TEST_P(HostWordsInHelp, NameButtonsAndColumnsOfTheEventsAsTheyAre) {
  const QString events = wordsOfPage("events.html");
  for (const char* button : {"&Save…", "C&opy", "C&lear"}) {
    EXPECT_TRUE(events.contains(plain("EventWindow", button) + ' ')) << button;
  }
  for (const char* column : {"From", "Result"}) {
    EXPECT_TRUE(events.contains(GetParam().column + plain("EventLog", column), Qt::CaseInsensitive))
        << column;
  }
}

TEST_P(HostWordsInHelp, NameARecordAsItsFileDoes) {
  EXPECT_TRUE(wordsOfPage("records.html").contains(plain("Record", "Module record")));
}

}  // namespace
}  // namespace tessara::testing
