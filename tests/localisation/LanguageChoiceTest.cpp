#include <gtest/gtest.h>

#include "localisation/LanguageBytes.h"
#include "localisation/LanguageFolder.h"

namespace tessara {
namespace {

using testing::languageBytes;
using testing::LanguageFolder;
using testing::ScriptedLocale;

/// A folder with all eleven files, each with its own ending as its title.
class LanguageChoice : public LanguageFolder {
 protected:
  void SetUp() override {
    for (const std::string letter : {"d", "e", "f", "s", "i", "p", "t", "r", "c", "z", "j"}) {
      const auto ending = letter + "lg";
      write("MERIDEX_CONF." + ending,
            languageBytes(u"[Title]\r\n1\r\n" + fromUtf8(ending) + u"\r\n"));
    }
  }

  void expectChoice(std::int16_t language, const std::u16string& ending,
                    const std::u16string& help) {
    EXPECT_TRUE(load(language));
    EXPECT_EQ(state.AppTitle, ending) << "language " << language;
    EXPECT_EQ(state.LanguageFileExtension, ending);
    EXPECT_EQ(state.HelpFileName, help);
  }
};

TEST_F(LanguageChoice, FollowsTheLanguageNumber) {
  expectChoice(1, u"dlg", u"Help_049.chm");
  expectChoice(2, u"elg", u"Help_001.chm");
  expectChoice(3, u"flg", u"Help_001.chm");
  expectChoice(4, u"slg", u"Help_001.chm");
  expectChoice(5, u"ilg", u"Help_001.chm");
  expectChoice(6, u"plg", u"Help_001.chm");
  expectChoice(7, u"tlg", u"Help_001.chm");
  expectChoice(8, u"rlg", u"Help_001.chm");
  expectChoice(9, u"clg", u"Help_001.chm");
  expectChoice(10, u"zlg", u"Help_001.chm");
  expectChoice(11, u"jlg", u"Help_001.chm");
}

TEST_F(LanguageChoice, IsEnglishForAnyOtherNumber) {
  for (const int language : {12, -1, 32767, -32768}) {
    expectChoice(static_cast<std::int16_t>(language), u"elg", u"Help_001.chm");
  }
}

TEST_F(LanguageChoice, FollowsTheCountryForNumberZero) {
  const auto expectInCountry = [&](const std::u16string& country, const std::u16string& ending,
                                   const std::u16string& help) {
    ScriptedLocale::standIn(locale, country);
    expectChoice(0, ending, help);
  };
  expectInCountry(u"33", u"flg", u"Help_001.chm");
  expectInCountry(u"34", u"slg", u"Help_001.chm");
  expectInCountry(u"43", u"dlg", u"Help_049.chm");
  expectInCountry(u"49", u"dlg", u"Help_049.chm");
  expectInCountry(u"39", u"elg", u"Help_001.chm");
  expectInCountry(u"81", u"elg", u"Help_001.chm");
}

TEST_F(LanguageChoice, IsEnglishIfThereIsNoCountry) {
  expectChoice(0, u"elg", u"Help_001.chm");
}

TEST_F(LanguageChoice, ReadsNoCountryIfTheNumberIsGiven) {
  (void)load(8);
  EXPECT_TRUE(locale.calls.empty());
}

TEST_F(LanguageChoice, HasNoHelpFileBeforeTheFirstLoad) {
  EXPECT_EQ(state.HelpFileName, u"");
  EXPECT_EQ(state.LanguageFileExtension, u"");
  EXPECT_FALSE(state.LanguageFileError);
}

}  // namespace
}  // namespace tessara
