#include <QRegularExpression>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "HelpPages.h"
#include "words/HostTexts.h"

namespace tessara::testing {
namespace {

constexpr QChar ellipsis(0x2026);

/// A help, and what its pages call a column of a table.
struct HelpOfHost {
  const char* name;
  HostTexts::Language language;
  const char* folder;
  const char* column;
};

/// The words of modulinfo-panel, held against the pages that tell of them.
class HostWordsInHelp : public ::testing::TestWithParam<HelpOfHost> {
 protected:
  [[nodiscard]] static QString page(const char* name) {
    return QString::fromStdString(
        pageSource(std::filesystem::path(TESSARA_BIN) / GetParam().folder / name));
  }
  [[nodiscard]] static QString wordsOf(const char* name) {
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
  /// The word as help tells of it: without access key and dots, other dots for its places.
  [[nodiscard]] QString plain(Word word) const {
    static const QRegularExpression place("%\\d");
    QString text = words(word);
    text.remove('&').remove(ellipsis);
    return text.trimmed().replace(place, ellipsis);
  }
  /// What a message on a file says before it goes into details.
  [[nodiscard]] QString lead(Word word) const { return plain(word).section(':', 0, 0); }

  HostTexts words{GetParam().language};
};

INSTANTIATE_TEST_SUITE_P(
    InEachLanguage, HostWordsInHelp,
    ::testing::Values(HelpOfHost{"German", HostTexts::Language::German, "Help_049", "Spalte "},
                      HelpOfHost{"English", HostTexts::Language::English, "Help_001", "column "}),
    [](const auto& help) { return std::string(help.param.name); });

TEST_P(HostWordsInHelp, EveryMessageThatIsQuotedIsOneOfTheHost) {
  const QStringList quoted = cells("messages.html", "host", 0);
  EXPECT_GE(quoted.size(), 9);
  for (const QString& message : quoted.join(" / ").split(" / ")) {
    bool isSaid = false;
    for (std::size_t i = 0; i < wordCount; ++i) {
      isSaid = isSaid || plain(static_cast<Word>(i)).startsWith(message);
    }
    EXPECT_TRUE(isSaid) << message.toStdString();
  }
}

TEST_P(HostWordsInHelp, EveryMessageOfTheHostIsTold) {
  const QString told = wordsOf("messages.html");
  for (const Word word : {Word::NoInterface, Word::NothingToStore, Word::NoModule,
                          Word::HelpInBrowser, Word::NoHelpProgram}) {
    EXPECT_TRUE(told.contains(plain(word))) << plain(word).toStdString();
  }
  for (const Word word :
       {Word::FileUnreadable2, Word::FileUnwritable2, Word::FileTooLarge2, Word::NotJson4,
        Word::OtherFormat2, Word::NewerVersion3, Word::FieldMissing2, Word::FieldWrong4}) {
    EXPECT_TRUE(told.contains(lead(word))) << lead(word).toStdString();
  }
}

TEST_P(HostWordsInHelp, TheLightIsCalledAsItsToolTipCallsIt) {
  const QStringList told = cells("status-line.html", "light", 1);
  std::set<QString> meanings;
  for (const Word word : {Word::ActivityReady, Word::ActivityBusy, Word::ActivityFailed,
                          Word::ActivityScanning, Word::ActivityNoInterface}) {
    meanings.insert(plain(word));
  }
  EXPECT_EQ(std::set<QString>(told.begin(), told.end()), meanings);
}

TEST_P(HostWordsInHelp, MenusAreNamedAsTheyAre) {
  const QString records = wordsOf("records.html");
  for (const Word entry :
       {Word::SaveRecord, Word::OpenRecord, Word::PrintRecord, Word::SavePdf, Word::CopyText}) {
    const QString way = plain(Word::MenuFile) + ", " + plain(entry);
    EXPECT_TRUE(records.contains(way)) << way.toStdString();
  }
  EXPECT_TRUE(
      wordsOf("events.html").contains(plain(Word::MenuView) + ", " + plain(Word::ShowEvents)));
}

TEST_P(HostWordsInHelp, ButtonsAndColumnsOfTheEventsAreNamedAsTheyAre) {
  const QString events = wordsOf("events.html");
  for (const Word button : {Word::EventsSave, Word::Copy, Word::EventsClear}) {
    EXPECT_TRUE(events.contains(plain(button) + ' ')) << plain(button).toStdString();
  }
  for (const Word column : {Word::EventOrigin, Word::EventResult}) {
    EXPECT_TRUE(events.contains(GetParam().column + plain(column), Qt::CaseInsensitive))
        << plain(column).toStdString();
  }
}

TEST_P(HostWordsInHelp, ARecordIsCalledAsItsFileIs) {
  EXPECT_TRUE(wordsOf("records.html").contains(plain(Word::RecordTitle)));
}

}  // namespace
}  // namespace tessara::testing
