#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "InLanguage.h"

namespace tessara::testing {
namespace {

TEST(PanelLanguage, FollowsTheLanguageFileOfTheControl) {
  std::vector<QLocale::Language> languages;
  for (const char16_t letter : std::u16string(u"defsiptrczj")) {
    languages.push_back(localeOf(loadedFrom(std::u16string(1, letter) + u"lg")).language());
  }
  EXPECT_EQ(languages,
            (std::vector<QLocale::Language>{QLocale::German, QLocale::English, QLocale::French,
                                            QLocale::Spanish, QLocale::Italian, QLocale::Portuguese,
                                            QLocale::Turkish, QLocale::Russian, QLocale::Chinese,
                                            QLocale::Polish, QLocale::Japanese}));
}

TEST(PanelLanguage, IsEnglishAsLongAsNoFileIsLoaded) {
  EXPECT_EQ(localeOf({}).language(), QLocale::English);
  EXPECT_EQ(localeOf(loadedFrom(u"xlg")).language(), QLocale::English);
}

TEST(PanelLanguage, IsGermanAfterTheControlFellBackOnItsOwnTexts) {
  LanguageState state = loadedFrom(u"rlg");
  state.LanguageFileError = true;
  EXPECT_EQ(localeOf(state).language(), QLocale::German);
}

TEST(PanelLanguage, WritesNumbersWithItsDecimalSignAndWithoutGroups) {
  EXPECT_EQ(localeOf(loadedFrom(u"dlg")).toString(1234.5, 'f', 1), "1234,5");
  EXPECT_EQ(localeOf(loadedFrom(u"elg")).toString(1234.5, 'f', 1), "1234.5");
}

TEST(PanelLanguage, HasATranslationForEveryLanguageButThatOfTheSources) {
  const std::vector<std::pair<std::u16string, QString>> titles{
      {u"dlg", "Modul-Information"},      {u"flg", "Informations du module"},
      {u"slg", "Información del módulo"}, {u"ilg", "Informazioni sul modulo"},
      {u"plg", "Informações do módulo"},  {u"tlg", "Modül bilgileri"},
      {u"rlg", "Информация о модуле"},    {u"clg", "模块信息"},
      {u"zlg", "Informacje o module"},    {u"jlg", "モジュール情報"}};
  for (const auto& [extension, title] : titles) {
    const InLanguage language(extension);
    EXPECT_EQ(programTitle().toStdString(), title.toStdString());
  }
  EXPECT_EQ(translatorFor(QLocale("en_GB")), nullptr);
  EXPECT_EQ(programTitle(), "Module information");
}

TEST(PanelLanguage, RefusesALanguageThatTheProgramHasNoTranslationFor) {
  EXPECT_THROW((void)translatorFor(QLocale("nl_NL")), std::runtime_error);
}

}  // namespace
}  // namespace tessara::testing
