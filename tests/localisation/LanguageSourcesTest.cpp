#include <array>
#include <cstdlib>
#include <set>

#include <gtest/gtest.h>

#include "localisation/LanguageFolder.h"
#include "localisation/LanguageSections.h"
#include "tools/language/LanguageBuilder.h"
#include "tools/language/LanguageChecker.h"

namespace tessara {
namespace {

struct Language {
  std::int16_t number;
  const char* source;
  const char16_t* helpFile;
};

constexpr std::array<Language, 11> languages{{
    {1, "german", u"Help_049.chm"},
    {2, "english", u"Help_001.chm"},
    {3, "french", u"Help_001.chm"},
    {4, "spanish", u"Help_001.chm"},
    {5, "italian", u"Help_001.chm"},
    {6, "portuguese", u"Help_001.chm"},
    {7, "turkish", u"Help_001.chm"},
    {8, "russian", u"Help_001.chm"},
    {9, "chinese", u"Help_001.chm"},
    {10, "polish", u"Help_001.chm"},
    {11, "japanese", u"Help_001.chm"},
}};

/// Each of the eleven languages, built from its source and loaded as the control loads it.
class LanguageSources : public testing::LanguageFolder {
 protected:
  void SetUp() override { LoadDefaultTexts(german); }

  void build(const Language& language) {
    const std::filesystem::path sources = std::getenv("TESSARA_LANGUAGES");
    const auto file = folder() / toUtf8(filesOfLanguage(language.number).languageFile);
    const auto problems =
        buildLanguageFile(sources / (std::string(language.source) + ".txt"), file);
    for (const auto& problem : problems) {
      ADD_FAILURE() << toLine(language.source, problem);
    }
    const auto report = checkLanguageFile(file);
    EXPECT_EQ(report.verdict, "loads");
    EXPECT_TRUE(report.ignored.empty());
    EXPECT_EQ(report.language, language.number);
    for (const auto& problem : report.problems) {
      ADD_FAILURE() << toLine(file, problem);
    }
  }

  void loadNew(const Language& language) {
    build(language);
    state = LanguageState();
    ASSERT_TRUE(load(language.number)) << language.source;
    EXPECT_EQ(state.HelpFileName, language.helpFile);
  }

  /// The loaded texts, section by section.
  std::vector<std::u16string> texts() { return textsOf(state); }

  static std::vector<std::u16string> textsOf(TextTables& tables) {
    std::vector<std::u16string> all;
    for (const auto& section : languageSections) {
      for (std::size_t i = 0; i < section.slots; ++i) {
        all.push_back(section.entry(tables, i));
      }
    }
    return all;
  }

  TextTables german;
};

TEST_F(LanguageSources, HaveExactlyTheTextsThatHaveABuiltInText) {
  for (const auto& language : languages) {
    loadNew(language);
    const auto wording = textsOf(german);
    const auto loaded = texts();
    for (std::size_t i = 0; i < wording.size(); ++i) {
      EXPECT_EQ(loaded[i].empty(), wording[i].empty())
          << language.source << " lacks \"" << toUtf8(wording[i]) << "\"";
    }
  }
}

TEST_F(LanguageSources, AnnounceTheirCounts) {
  for (const auto& language : languages) {
    build(language);
    const auto report =
        checkLanguageFile(folder() / toUtf8(filesOfLanguage(language.number).languageFile));
    std::vector<std::int16_t> counts;
    for (const auto& section : report.sections) {
      counts.push_back(section.count);
    }
    EXPECT_EQ(counts, (std::vector<std::int16_t>{1, 26, 26, 1, 35})) << language.source;
  }
}

TEST_F(LanguageSources, InGermanAreTheBuiltInTexts) {
  loadNew(languages[0]);
  EXPECT_EQ(texts(), textsOf(german));
}

TEST_F(LanguageSources, KeepTheTitle) {
  for (const auto& language : languages) {
    loadNew(language);
    EXPECT_EQ(state.AppTitle, u"MERIDEX_CONF");
  }
}

TEST_F(LanguageSources, HaveNoLineEndAndNoBlankAtTheirEnds) {
  for (const auto& language : languages) {
    loadNew(language);
    for (const auto& text : texts()) {
      EXPECT_EQ(text.find_first_of(u"\r\n\t"), std::u16string::npos) << toUtf8(text);
      EXPECT_FALSE(text.starts_with(u' ') || text.ends_with(u' ')) << toUtf8(text);
    }
  }
}

TEST_F(LanguageSources, KeepTheEndingsThatSayWhatHappensNext) {
  const auto ending = [](const std::u16string& text) -> std::u16string {
    if (text.ends_with(u"...")) {
      return u"...";
    }
    if (text.ends_with(u'!') || text.ends_with(u'！')) {
      return u"!";
    }
    return text.ends_with(u'?') || text.ends_with(u'？') ? u"?" : u"";
  };
  for (const auto& language : languages) {
    loadNew(language);
    const auto wording = textsOf(german);
    const auto loaded = texts();
    for (std::size_t i = 0; i < wording.size(); ++i) {
      EXPECT_EQ(ending(loaded[i]), ending(wording[i]))
          << language.source << ": " << toUtf8(loaded[i]);
    }
  }
}

TEST_F(LanguageSources, KeepTheNamesOfTheProducts) {
  for (const auto& language : languages) {
    loadNew(language);
    for (const auto* product : {u"TESSARA", u"VELLUM", u"KORRIN"}) {
      EXPECT_NE(state.TextMainFrame[16].find(product), std::u16string::npos) << language.source;
    }
  }
}

TEST_F(LanguageSources, UseADifferentTextForEachState) {
  for (const auto& language : languages) {
    loadNew(language);
    std::set<std::u16string> states;
    for (std::size_t i = 0; i < 35; ++i) {
      EXPECT_TRUE(states.insert(state.TextStatus[i]).second)
          << language.source << " says " << toUtf8(state.TextStatus[i]) << " twice";
    }
  }
}

TEST_F(LanguageSources, KeepTheContactColumnOfTheAboutBoxInPlace) {
  for (const auto& language : languages) {
    loadNew(language);
    for (std::size_t i = 22; i <= 25; ++i) {
      EXPECT_LE(state.TextMainFrame[i].size(), 10U) << toUtf8(state.TextMainFrame[i]);
    }
  }
}

TEST_F(LanguageSources, AreShortIfTheyAreCaptions) {
  for (const auto& language : languages) {
    loadNew(language);
    for (const std::size_t i : {0U, 1U, 2U, 4U, 5U, 6U, 21U, 22U}) {
      EXPECT_LE(state.TextModulInfo[i].size(), 17U) << toUtf8(state.TextModulInfo[i]);
    }
  }
}

TEST_F(LanguageSources, InEnglishAskForARestartInTheWordsAddedToAllOthers) {
  loadNew(languages[1]);
  EXPECT_EQ(state.TextModulInfo[17], u"Please restart application!");
}

}  // namespace
}  // namespace tessara
