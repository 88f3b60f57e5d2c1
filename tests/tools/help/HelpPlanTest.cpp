#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tools/help/HelpPlan.h"

namespace tessara {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string complete =
    "# a comment\n\ntitle = Help\nlanguage = 0x0409 English\nhtmlLanguage = en\n"
    "contents = Contents\nback = Back\nnext = Next = on\npage = index\npage = ports\n";

std::vector<FileProblem> problemsOf(const std::string& text) {
  std::vector<FileProblem> problems;
  (void)readHelpPlan(text, problems);
  return problems;
}

TEST(HelpPlan, TakesItsEntriesAndPagesInOrder) {
  std::vector<FileProblem> problems;
  const HelpPlan plan = readHelpPlan(complete, problems);
  EXPECT_THAT(problems, IsEmpty());
  EXPECT_EQ(plan.title, "Help");
  EXPECT_EQ(plan.next, "Next = on");
  EXPECT_THAT(plan.pages, ElementsAre("index", "ports"));
}

TEST(HelpPlan, TellsLinesThatAreNoEntriesOrUnknownOnes) {
  const auto problems = problemsOf(complete + "rubbish\ncolour = blue\npage = ports\n");
  EXPECT_THAT(problems,
              ElementsAre(Field(&FileProblem::message, HasSubstr("\"rubbish\" is not of the form")),
                          Field(&FileProblem::message, "unknown entry \"colour\""),
                          Field(&FileProblem::message, "duplicate page ports")));
  EXPECT_EQ(problems[0].line, 11U);
}

TEST(HelpPlan, TellsWhatIsMissing) {
  EXPECT_EQ(problemsOf("").size(), 7U);
}

TEST(HelpPlan, TellsATitleThatViewersMayGarble) {
  std::string text = complete;
  text.replace(text.find("Help"), 4, "Hülfe");
  EXPECT_THAT(problemsOf(text), ElementsAre(Field(&FileProblem::message, HasSubstr("ASCII"))));
}

}  // namespace
}  // namespace tessara
