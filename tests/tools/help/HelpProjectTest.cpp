#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/help/HelpProject.h"

namespace tessara {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

const HelpPlan plan{"Help", "0x0407 German", "de", "Inhalt", "Zurück", "Weiter", {"index", "b"}};

std::vector<HelpPage> twoPages() {
  HelpPage first{"index", "<h1>Erste</h1>\n{{contents}}\n", {{1, "", "Erste", {"Anfang"}}}, {}, {}};
  HelpPage second{"b",
                  "<h1>Größe</h1>\n",
                  {{1, "", "Größe", {}}, {2, "s", "Abschnitt", {"Erste"}}},
                  {"p.png"},
                  {}};
  return {first, second};
}

TEST(HelpProject, APageHasItsTitleStyleLanguageAndNeighbours) {
  const std::string html = pageHtml(plan, twoPages(), 1);
  EXPECT_THAT(html, AllOf(HasSubstr("<html lang=\"de\">"), HasSubstr("<title>Größe</title>"),
                          HasSubstr("href=\"help.css\""), HasSubstr("<meta charset=\"utf-8\">")));
  EXPECT_THAT(
      html, AllOf(HasSubstr("<a href=\"index.html\">Inhalt</a>"),
                  HasSubstr("<a href=\"index.html\">Zurück: Erste</a>"), Not(HasSubstr("Weiter"))));
}

TEST(HelpProject, TheFirstPageListsTheOthersAndLeadsToTheNext) {
  const std::string html = pageHtml(plan, twoPages(), 0);
  EXPECT_THAT(html, AllOf(HasSubstr("<li><a href=\"b.html\">Größe</a></li>"),
                          HasSubstr("<a href=\"b.html\">Weiter: Größe</a>"),
                          Not(HasSubstr("{{contents}}")), Not(HasSubstr("Zurück"))));
}

TEST(HelpProject, TheProjectNamesItsFilesOnce) {
  const std::string text = projectText(plan, twoPages(), "Help_049");
  EXPECT_THAT(
      text,
      AllOf(HasSubstr("Compiled file=Help_049.chm\n"), HasSubstr("Contents file=Help_049.hhc\n"),
            HasSubstr("Index file=Help_049.hhk\n"), HasSubstr("Default topic=index.html\n"),
            HasSubstr("Title=Help\n"), HasSubstr("Language=0x0407 German\n")));
  EXPECT_THAT(text, HasSubstr("[FILES]\nindex.html\nb.html\nhelp.css\np.png\n"));
}

TEST(HelpProject, TheContentsHoldPagesWithTheirSectionsBelow) {
  const std::string text = contentsText(twoPages());
  EXPECT_THAT(text, HasSubstr("value=\"Gr&#246;&#223;e\"><param name=\"Local\" value=\"b.html\">"
                              "</object>\n<ul>\n<li><object type=\"text/sitemap\"><param "
                              "name=\"Name\" value=\"Abschnitt\"><param name=\"Local\" "
                              "value=\"b.html#s\"></object>\n</ul>\n"));
}

TEST(HelpProject, TheIndexIsInOrderAndHasEachWordOnce) {
  const std::string text = indexText(twoPages());
  const auto placeOf = [&](const char* word) {
    return text.find("value=\"" + std::string(word) + "\"");
  };
  EXPECT_LT(placeOf("Abschnitt"), placeOf("Anfang"));
  EXPECT_LT(placeOf("Anfang"), placeOf("Erste"));
  EXPECT_EQ(text.find("value=\"Erste\"", placeOf("Erste") + 1), std::string::npos);
}

}  // namespace
}  // namespace tessara
