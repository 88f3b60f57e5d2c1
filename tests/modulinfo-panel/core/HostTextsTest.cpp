#include <QDateTime>
#include <QRegularExpression>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "words/HostTexts.h"

namespace tessara::testing {
namespace {

using Language = HostTexts::Language;

constexpr QChar ellipsis(0x2026);

std::vector<Word> allWords() {
  std::vector<Word> words;
  for (std::size_t i = 0; i < wordCount; ++i) {
    words.push_back(static_cast<Word>(i));
  }
  return words;
}

LanguageState loaded(const std::u16string& extension) {
  LanguageState state;
  state.LanguageFileExtension = extension;
  return state;
}

/// What the expression finds in the text, in alphabetical order.
QStringList foundIn(const QString& text, const char* expression) {
  QStringList found;
  for (const QRegularExpressionMatch& match : QRegularExpression(expression).globalMatch(text)) {
    found += match.captured();
  }
  found.sort();
  return found;
}

/// The words of the host in each language of the control, beside those in English.
class HostTextsTest : public ::testing::TestWithParam<Language> {
 protected:
  HostTexts words{GetParam()};
  HostTexts english;
};

std::string nameOf(const ::testing::TestParamInfo<Language>& language) {
  return QLocale::languageToString(HostTexts(language.param).locale().language()).toStdString();
}

INSTANTIATE_TEST_SUITE_P(AllEleven, HostTextsTest,
                         ::testing::Values(Language::German, Language::English, Language::French,
                                           Language::Spanish, Language::Italian,
                                           Language::Portuguese, Language::Turkish,
                                           Language::Russian, Language::Chinese, Language::Polish,
                                           Language::Japanese),
                         nameOf);

TEST_P(HostTextsTest, SaysEverySentenceInALanguageOfItsOwn) {
  if (GetParam() == Language::English) {
    EXPECT_EQ(words(Word::NoHelpProgram), "No program is installed that shows the help.");
    return;
  }
  for (const Word word : allWords()) {
    const QString text = english(word);
    if (text.contains(' ') && !text.startsWith('%') && word != Word::Moment) {
      EXPECT_NE(words(word).toStdString(), text.toStdString());
    }
  }
}

TEST_P(HostTextsTest, HasThePlacesOfTheEnglishWord) {
  for (const Word word : allWords()) {
    EXPECT_EQ(foundIn(words(word), "%\\d"), foundIn(english(word), "%\\d"))
        << words(word).toStdString();
  }
}

TEST_P(HostTextsTest, EndsAsTheEnglishWordDoes) {
  for (const Word word : allWords()) {
    const QString text = words(word);
    EXPECT_EQ(text.endsWith(ellipsis), english(word).endsWith(ellipsis)) << text.toStdString();
    EXPECT_EQ(text.endsWith('.') || text.endsWith(QChar(0x3002)), english(word).endsWith('.'))
        << text.toStdString();
  }
}

TEST_P(HostTextsTest, PutsAColonWhereverTheEnglishWordDoes) {
  for (const Word word : allWords()) {
    EXPECT_GE(foundIn(words(word), "[:：]").size(), foundIn(english(word), ":").size())
        << words(word).toStdString();
  }
}

TEST_P(HostTextsTest, NamesTheSameKindsOfFiles) {
  for (const Word word : {Word::RecordFiles, Word::PdfFiles, Word::TextFiles}) {
    EXPECT_EQ(foundIn(words(word), "\\([^)]*\\)$"), foundIn(english(word), "\\([^)]*\\)$"));
  }
}

TEST_P(HostTextsTest, HasNoBlankTooMany) {
  for (const Word word : allWords()) {
    const QString text = words(word);
    EXPECT_EQ(text.simplified().size(), text.size()) << text.toStdString();
    EXPECT_FALSE(text.contains(QRegularExpression("[ ][:.,;?!]"))) << text.toStdString();
  }
}

TEST_P(HostTextsTest, HasOneAccessKeyWhereTheEnglishWordHasOne) {
  for (const Word word : allWords()) {
    const QStringList keys = foundIn(words(word), "&\\p{L}");
    EXPECT_EQ(keys.size(), english(word).count('&')) << words(word).toStdString();
    EXPECT_EQ(keys.size(), words(word).count('&')) << words(word).toStdString();
  }
}

TEST_P(HostTextsTest, AccessKeysOfAMenuOrWindowDiffer) {
  const std::vector<std::vector<Word>> menus{
      {Word::MenuFile, Word::MenuModule, Word::MenuView, Word::MenuHelp},
      {Word::SaveRecord, Word::OpenRecord, Word::PrintRecord, Word::SavePdf, Word::CopyText,
       Word::Quit},
      {Word::Close, Word::Copy, Word::PrintRecord, Word::SavePdf},
      {Word::EventsSave, Word::EventsClear, Word::Copy, Word::Close}};
  for (const auto& menu : menus) {
    std::set<QString> keys;
    for (const Word word : menu) {
      EXPECT_TRUE(keys.insert(foundIn(words(word).toUpper(), "&\\p{L}").value(0)).second)
          << words(word).toStdString();
    }
  }
}

TEST_P(HostTextsTest, WritesWhenAModuleWasReadToTheSecond) {
  const QDateTime moment(QDate(2024, 5, 17), QTime(8, 4, 59), Qt::OffsetFromUTC, 7200);
  const QString text = words.locale().toString(moment, words(Word::Moment));
  for (const char* part : {"17", "2024", "08:04:59", "UTC+02:00"}) {
    EXPECT_TRUE(text.contains(part)) << text.toStdString();
  }
  EXPECT_TRUE(text.contains(words.locale().monthName(5)) || text.contains("5月"))
      << text.toStdString();
}

TEST(HostTexts, FillInWhatTheyAreGivenAsItStands) {
  EXPECT_EQ(HostTexts()(Word::FileUnreadable2, {"%2.json", "no %1"}),
            "%2.json cannot be read: no %1");
}

TEST(HostTexts, FollowTheLanguageOfTheControl) {
  std::vector<QLocale::Language> spoken;
  for (const char16_t letter : std::u16string(u"defsiptrczj")) {
    const std::u16string extension = std::u16string(1, letter) + u"lg";
    spoken.push_back(HostTexts::beside(loaded(extension)).locale().language());
  }
  EXPECT_EQ(spoken, (std::vector<QLocale::Language>{
                        QLocale::German, QLocale::English, QLocale::French, QLocale::Spanish,
                        QLocale::Italian, QLocale::Portuguese, QLocale::Turkish, QLocale::Russian,
                        QLocale::Chinese, QLocale::Polish, QLocale::Japanese}));
}

TEST(HostTexts, AreEnglishAsLongAsNothingIsLoaded) {
  EXPECT_EQ(HostTexts::beside({}).language(), Language::English);
  EXPECT_EQ(HostTexts::beside(loaded(u"xlg")).language(), Language::English);
}

TEST(HostTexts, AreGermanWhereTheControlFellBackOnItsOwnWording) {
  LanguageState state = loaded(u"rlg");
  state.LanguageFileError = true;
  EXPECT_EQ(HostTexts::beside(state).language(), Language::German);
}

TEST(HostTexts, NumbersHaveTheSignsOfTheLanguage) {
  EXPECT_EQ(HostTexts(Language::German).locale().toString(1234.5, 'f', 1), "1234,5");
  EXPECT_EQ(HostTexts(Language::English).locale().toString(1234.5, 'f', 1), "1234.5");
}

}  // namespace
}  // namespace tessara::testing
