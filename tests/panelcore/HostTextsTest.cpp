#include <QRegularExpression>
#include <set>

#include <gtest/gtest.h>

#include "words/HostTexts.h"

namespace tessara::testing {
namespace {

constexpr std::array languages{HostTexts::Language::English, HostTexts::Language::German,
                               HostTexts::Language::Russian, HostTexts::Language::Chinese};

std::vector<Word> allWords() {
  std::vector<Word> words;
  for (std::size_t i = 0; i < static_cast<std::size_t>(Word::Count); ++i) {
    words.push_back(static_cast<Word>(i));
  }
  return words;
}

LanguageState loaded(const std::u16string& extension) {
  LanguageState state;
  state.LanguageFileExtension = extension;
  return state;
}

TEST(HostTexts, NoWordIsMissing) {
  for (const auto language : languages) {
    for (const Word word : allWords()) {
      EXPECT_FALSE(HostTexts(language)(word).isEmpty()) << static_cast<int>(word);
    }
  }
}

TEST(HostTexts, EveryLanguageHasThePlacesOfTheEnglishWord) {
  static const QRegularExpression place("%\\d");
  for (const Word word : allWords()) {
    const auto placesOf = [&](HostTexts::Language language) {
      QStringList places;
      auto found = place.globalMatch(HostTexts(language)(word));
      while (found.hasNext()) places += found.next().captured();
      places.sort();
      return places;
    };
    for (const auto language : languages) {
      EXPECT_EQ(placesOf(language), placesOf(HostTexts::Language::English))
          << HostTexts(language)(word).toStdString();
    }
  }
}

TEST(HostTexts, AccessKeysOfAMenuDiffer) {
  const std::vector<std::vector<Word>> menus{
      {Word::MenuFile, Word::MenuModule, Word::MenuView, Word::MenuHelp},
      {Word::SaveRecord, Word::OpenRecord, Word::PrintRecord, Word::SavePdf, Word::CopyText,
       Word::Quit},
      {Word::Close, Word::Copy, Word::PrintRecord, Word::SavePdf},
      {Word::EventsSave, Word::EventsClear, Word::Copy, Word::Close}};
  for (const auto language : languages) {
    for (const auto& menu : menus) {
      std::set<QChar> keys;
      for (const Word word : menu) {
        const QString text = HostTexts(language)(word);
        const qsizetype mark = text.indexOf('&');
        ASSERT_GE(mark, 0) << text.toStdString();
        EXPECT_TRUE(keys.insert(text[mark + 1].toUpper()).second) << text.toStdString();
      }
    }
  }
}

TEST(HostTexts, FillInWhatTheyAreGivenAsItStands) {
  EXPECT_EQ(HostTexts()(Word::FileUnreadable2, {"%2.json", "no %1"}),
            "%2.json cannot be read: no %1");
}

TEST(HostTexts, FollowTheLanguageOfTheControl) {
  EXPECT_EQ(HostTexts::beside(loaded(u"dlg")).language(), HostTexts::Language::German);
  EXPECT_EQ(HostTexts::beside(loaded(u"elg")).language(), HostTexts::Language::English);
  EXPECT_EQ(HostTexts::beside(loaded(u"rlg")).language(), HostTexts::Language::Russian);
  EXPECT_EQ(HostTexts::beside(loaded(u"clg")).language(), HostTexts::Language::Chinese);
}

TEST(HostTexts, AreEnglishInLanguagesThatTheyDoNotHave) {
  for (const char16_t letter : std::u16string(u"fsiptzj")) {
    EXPECT_EQ(HostTexts::beside(loaded(std::u16string(1, letter) + u"lg")).language(),
              HostTexts::Language::English);
  }
  EXPECT_EQ(HostTexts::beside({}).language(), HostTexts::Language::English);
}

TEST(HostTexts, AreGermanWhereTheControlFellBackOnItsOwnWording) {
  LanguageState state = loaded(u"rlg");
  state.LanguageFileError = true;
  EXPECT_EQ(HostTexts::beside(state).language(), HostTexts::Language::German);
}

}  // namespace
}  // namespace tessara::testing
