#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/help/HelpPage.h"

namespace tessara {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

class HelpPageTest : public ::testing::Test {
 protected:
  HelpPageTest() { LoadDefaultTexts(texts); }

  HelpPage read(const std::string& source) { return readHelpPage("page", source, texts, problems); }

  std::string problemOf(const std::string& source) {
    (void)read(source);
    return problems.empty() ? std::string()
                            : std::to_string(problems[0].line) + ": " + problems[0].message;
  }

  TextTables texts;
  std::vector<FileProblem> problems;
};

TEST_F(HelpPageTest, PutsTheTextsOfTheLanguageInPlace) {
  texts.TextStatus[0] = u"a < b";
  const HelpPage page = read("<h1>{{ModulInfo 1}}</h1>\n<p>{{Messages 0}}, {{Buttons 0}}</p>\n");
  EXPECT_THAT(problems, IsEmpty());
  EXPECT_EQ(page.title(), "COM-Port");
  EXPECT_EQ(page.body, "<h1>COM-Port</h1>\n<p>a &lt; b, Abbrechen</p>\n");
}

TEST_F(HelpPageTest, NotesHeadingsWithTheirAnchorsAndKeywordsAndLeavesTheKeywordsOut) {
  const HelpPage page =
      read("<h1 data-index=\"One; Two\">A</h1>\n<h2 id=\"b\">B &amp; <i>C</i></h2>\n");
  EXPECT_THAT(problems, IsEmpty());
  ASSERT_EQ(page.headings.size(), 2U);
  EXPECT_THAT(page.headings[0].keywords, ElementsAre("One", "Two"));
  EXPECT_EQ(page.headings[1].level, 2);
  EXPECT_EQ(page.headings[1].text, "B & C");
  EXPECT_TRUE(page.hasAnchor("b"));
  EXPECT_FALSE(page.hasAnchor(""));
  EXPECT_EQ(page.body, "<h1>A</h1>\n<h2 id=\"b\">B &amp; <i>C</i></h2>\n");
}

TEST_F(HelpPageTest, GathersPicturesAndLocalLinks) {
  const HelpPage page = read(
      "<h1>A</h1>\n<img src=\"p.png\"> <a href=\"b.html#c\">x</a>\n"
      "<a href=\"https://example.invalid/\">y</a> <a href=\"#z\">z</a>\n");
  EXPECT_THAT(page.pictures, ElementsAre("p.png"));
  EXPECT_THAT(page.links, ElementsAre(Pair(2, "b.html#c"), Pair(3, "#z")));
}

TEST_F(HelpPageTest, LeavesTheMarkOfTheContentsInPlace) {
  EXPECT_THAT(read("<h1>A</h1>\n{{contents}}\n").body, HasSubstr(contentsMark));
  EXPECT_THAT(problems, IsEmpty());
}

TEST_F(HelpPageTest, TellsTextsThatThereAreNot) {
  EXPECT_EQ(problemOf("<h1>A</h1>\n{{Messages 35}}"), "2: no language file has {{Messages 35}}");
  problems.clear();
  EXPECT_EQ(problemOf("<h1>A</h1>\n{{Letters 1}}"), "2: no language file has {{Letters 1}}");
  problems.clear();
  EXPECT_EQ(problemOf("<h1>A</h1>\n{{words}}"), "2: unknown placeholder \"{{words}}\"");
}

TEST_F(HelpPageTest, TellsHeadingsOutOfOrder) {
  EXPECT_EQ(problemOf("<p>A</p>"), "1: a page must begin with its only <h1>");
  problems.clear();
  EXPECT_EQ(problemOf("<h1>A</h1>\n<h1>B</h1>"), "1: a page must begin with its only <h1>");
  problems.clear();
  EXPECT_EQ(problemOf("<h2 id=\"b\">B</h2>\n<h1>A</h1>"),
            "1: a page must begin with its only <h1>");
  problems.clear();
  EXPECT_EQ(problemOf("<h1>A</h1>\n<h2>B</h2>"), "2: a section needs an id, a page title has none");
  problems.clear();
  EXPECT_EQ(problemOf("<h1>A</h1>\n<h2 id=\"b\">B</h2>\n<h2 id=\"b\">C</h2>"), "3: duplicate id b");
  problems.clear();
  EXPECT_THAT(problemOf("<h1>A</h1>\n<h2 id=\"b\">\nB</h2>"), HasSubstr("must be on one line"));
}

}  // namespace
}  // namespace tessara
