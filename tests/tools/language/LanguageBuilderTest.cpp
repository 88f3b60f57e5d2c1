#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Text.h"
#include "localisation/Language.h"
#include "localisation/LanguageBytes.h"
#include "localisation/LanguageFile.h"
#include "tools/language/CompleteSource.h"
#include "tools/language/LanguageBuilder.h"

namespace tessara {
namespace {

using testing::completeSource;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::replaced;
using testing::utf16Bytes;

/// What is wrong with a source, line by line.
std::vector<std::string> problemsOf(const std::string& source) {
  const auto built = buildLanguage(source);
  EXPECT_EQ(built.bytes.empty(), !built.problems.empty());
  std::vector<std::string> lines;
  for (const auto& problem : built.problems) {
    lines.push_back(toLine("x.txt", problem));
  }
  return lines;
}

TEST(LanguageBuilder, WritesByteOrderMarkHeadersCountsAndTextsWithCrLf) {
  const auto built = buildLanguage(completeSource());
  ASSERT_THAT(built.problems, IsEmpty());
  const auto start = "\xFF\xFE" + utf16Bytes(
                                      u"[Title]\r\n1\r\nTitle 0\r\n[MainFrame]\r\n26\r\n"
                                      u"MainFrame 0\r\nMainFrame 1\r\n");
  EXPECT_EQ(built.bytes.substr(0, start.size()), start);
  EXPECT_TRUE(built.bytes.ends_with(utf16Bytes(u"Messages 34\r\n")));
}

TEST(LanguageBuilder, BuildsAFileThatTheControlLoads) {
  LanguageState state;
  LanguageFile file(buildLanguage(completeSource()).bytes);
  EXPECT_TRUE(readLanguageFile(file, u".", state));
  EXPECT_EQ(state.AppTitle, u"Title 0");
  EXPECT_EQ(state.TextMainFrame[25], u"MainFrame 25");
  EXPECT_EQ(state.TextModulInfo[25], u"ModulInfo 25");
  EXPECT_EQ(state.TextButtons[0], u"Buttons 0");
  EXPECT_EQ(state.TextStatus[34], u"Messages 34");
}

TEST(LanguageBuilder, WritesTheSectionsInTheirOrder) {
  const auto plain = completeSource();
  const auto title = plain.find("[MainFrame]");
  EXPECT_EQ(buildLanguage(plain.substr(title) + plain.substr(0, title)).bytes,
            buildLanguage(plain).bytes);
}

TEST(LanguageBuilder, IgnoresCommentsAndBlankLines) {
  EXPECT_EQ(buildLanguage("# words\n\n" + completeSource() + "\n# end\n").bytes,
            buildLanguage(completeSource()).bytes);
}

TEST(LanguageBuilder, AcceptsCrLfAndAByteOrderMark) {
  std::string windows = "\xEF\xBB\xBF";
  for (const char c : completeSource()) {
    windows += c == '\n' ? "\r\n" : std::string(1, c);
  }
  EXPECT_EQ(buildLanguage(windows).bytes, buildLanguage(completeSource()).bytes);
}

TEST(LanguageBuilder, AcceptsALastLineWithoutLineEnd) {
  auto source = completeSource();
  source.pop_back();
  EXPECT_EQ(buildLanguage(source).bytes, buildLanguage(completeSource()).bytes);
}

TEST(LanguageBuilder, KeepsTheTextAfterTheFirstEqualsSignUnchanged) {
  LanguageState state;
  LanguageFile file(
      buildLanguage(replaced(completeSource(), "Buttons 0", " [a] = #b 取消 😀 ")).bytes);
  ASSERT_TRUE(readLanguageFile(file, u".", state));
  EXPECT_EQ(state.TextButtons[0], u" [a] = #b 取消 😀 ");
}

TEST(LanguageBuilder, AcceptsAdditionalEntries) {
  LanguageState state;
  LanguageFile file(
      buildLanguage(replaced(completeSource(), "0 = Buttons 0", "0 = a\n1 = b\n2 = c\n3 = d"))
          .bytes);
  ASSERT_TRUE(readLanguageFile(file, u".", state));
  EXPECT_EQ(state.TextButtons[3], u"d");
}

TEST(LanguageBuilder, ReportsEntriesThatTheTableHasNoRoomFor) {
  EXPECT_THAT(
      problemsOf(replaced(completeSource(), "0 = Buttons 0", "0 = a\n1 = b\n2 = c\n3 = d\n4 = e")),
      ElementsAre("x.txt:62: section [Buttons] has room for 4 entries"));
}

TEST(LanguageBuilder, ReportsAMissingSection) {
  EXPECT_THAT(problemsOf(replaced(completeSource(), "[Buttons]\n0 = Buttons 0\n", "")),
              ElementsAre("x.txt: section [Buttons] is missing"));
}

TEST(LanguageBuilder, ReportsAnIncompleteSection) {
  EXPECT_THAT(problemsOf(replaced(completeSource(), "34 = Messages 34\n", "")),
              ElementsAre("x.txt:59: section [Messages] has 34 of 35 entries"));
}

TEST(LanguageBuilder, ReportsADoubledSection) {
  EXPECT_THAT(problemsOf(completeSource() + "[Title]\n0 = again\n"),
              ElementsAre("x.txt:95: section [Title] is already defined in line 1"));
}

TEST(LanguageBuilder, ReportsAnUnknownSection) {
  EXPECT_THAT(problemsOf(completeSource() + "[messages]\n0 = a\n"),
              ElementsAre("x.txt:95: unknown section \"[messages]\""));
}

TEST(LanguageBuilder, ReportsAGapInTheNumbers) {
  EXPECT_THAT(problemsOf(replaced(completeSource(), "34 = Messages 34", "35 = Messages 34")),
              ElementsAre("x.txt:94: entry 35 found where entry 34 was expected"));
}

TEST(LanguageBuilder, ReportsAnEntryWithoutText) {
  EXPECT_THAT(problemsOf(replaced(completeSource(), "0 = Buttons 0", "0 = ")),
              ElementsAre("x.txt:58: entry 0 has no text"));
}

TEST(LanguageBuilder, ReportsALineThatIsNotAnEntry) {
  for (const std::string line : {"Abbrechen", "0: Abbrechen", "x = y", " 0 = y", "= y", "-1 = y"}) {
    EXPECT_THAT(problemsOf(completeSource() + line + "\n"),
                ElementsAre("x.txt:95: \"" + line + "\" is not an entry; expected: 0 = text"));
  }
}

TEST(LanguageBuilder, ReportsAnEntryBeforeTheFirstSection) {
  EXPECT_THAT(problemsOf("0 = a\n" + completeSource()),
              ElementsAre("x.txt:1: entry before the first section"));
}

TEST(LanguageBuilder, ReportsControlCharactersAndDamagedText) {
  for (const std::string text : {"a\tb", "a\rb", "a\x01", "a\x7F", "a\xFF", "a\xC3"}) {
    EXPECT_THAT(problemsOf(replaced(completeSource(), "Buttons 0", text)),
                ElementsAre("x.txt:58: entry 0 contains a control character or invalid UTF-8"));
  }
}

TEST(LanguageBuilder, ReportsEverythingMissingInAnEmptySource) {
  EXPECT_THAT(
      problemsOf(""),
      ElementsAre("x.txt: section [Title] is missing", "x.txt: section [MainFrame] is missing",
                  "x.txt: section [ModulInfo] is missing", "x.txt: section [Buttons] is missing",
                  "x.txt: section [Messages] is missing"));
}

}  // namespace
}  // namespace tessara
