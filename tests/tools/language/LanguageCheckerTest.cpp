#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "localisation/LanguageBytes.h"
#include "tools/language/CompleteSource.h"
#include "tools/language/LanguageBuilder.h"
#include "tools/language/LanguageChecker.h"

namespace tessara {
namespace {

using ::testing::AllOf;
using testing::completeSource;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::languageBytes;
using ::testing::SizeIs;

std::vector<std::string> linesOf(const std::vector<FileProblem>& problems) {
  std::vector<std::string> lines;
  lines.reserve(problems.size());
  for (const auto& problem : problems) {
    lines.push_back(toLine("x", problem));
  }
  return lines;
}

std::vector<std::string> problemsOf(std::u16string_view text) {
  return linesOf(checkLanguage(languageBytes(text)).problems);
}

/// A complete file as text, without its byte order mark.
std::u16string completeText() {
  const auto bytes = buildLanguage(completeSource()).bytes;
  std::u16string text;
  for (std::size_t i = 2; i < bytes.size(); i += 2) {
    text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                  (static_cast<unsigned char>(bytes[i + 1]) << 8U));
  }
  return text;
}

std::u16string changed(std::u16string_view part, std::u16string_view by) {
  auto text = completeText();
  return text.replace(text.find(part), part.size(), by);
}

TEST(LanguageChecker, FindsNothingWrongWithACompleteFile) {
  const auto report = checkLanguage(languageBytes(completeText()));
  EXPECT_EQ(report.verdict, "loads");
  EXPECT_THAT(report.problems, IsEmpty());
  EXPECT_THAT(report.ignored, IsEmpty());
}

TEST(LanguageChecker, ListsEachSectionWithItsLineCountAndTexts) {
  const auto report = checkLanguage(languageBytes(completeText()));
  ASSERT_THAT(report.sections, SizeIs(5));
  const auto& modulInfo = report.sections[2];
  EXPECT_EQ(modulInfo.header, u"[ModulInfo]");
  EXPECT_EQ(modulInfo.line, 32U);
  EXPECT_EQ(modulInfo.count, 26);
  ASSERT_THAT(modulInfo.texts, SizeIs(26));
  EXPECT_EQ(modulInfo.texts[25], u"ModulInfo 25");
  EXPECT_EQ(report.sections[4].texts, [] {
    std::vector<std::u16string> texts;
    for (int i = 0; i < 35; ++i) {
      const auto digits = std::to_string(i);
      texts.push_back(u"Messages " + std::u16string(digits.begin(), digits.end()));
    }
    return texts;
  }());
}

TEST(LanguageChecker, ReportsCommentsAsIgnored) {
  const auto report = checkLanguage(languageBytes(u"; words\r\n" + completeText()));
  EXPECT_THAT(report.problems, IsEmpty());
  EXPECT_THAT(linesOf(report.ignored), ElementsAre("x:1: ignored: ; words"));
}

TEST(LanguageChecker, ReportsABlankLineBeforeAHeader) {
  const auto text = changed(u"[Buttons]", u"\r\n[Buttons]");
  EXPECT_THAT(
      problemsOf(text),
      ElementsAre("x:60: blank line: its CR LF becomes the start of the next line, which reads "
                  "\"<CR><LF>[Buttons]\"",
                  "x:60: not a valid header, so its section is ignored: "
                  "\"<CR><LF>[Buttons]\"",
                  "x: section [Buttons] has 0 of 1 texts; the others stay empty"));
  EXPECT_EQ(checkLanguage(languageBytes(text)).verdict, "loads");
}

TEST(LanguageChecker, ReportsAHeaderThatIsReadAsText) {
  EXPECT_THAT(problemsOf(changed(u"26\r\nModulInfo 0", u"27\r\nModulInfo 0")),
              ElementsAre("x:60: the header [Buttons] is read as text 26 of [ModulInfo], which "
                          "announces more texts than it has",
                          "x: section [Buttons] has 0 of 1 texts; the others stay empty"));
}

TEST(LanguageChecker, ReportsAHeaderInTheWrongLetterCase) {
  EXPECT_THAT(problemsOf(changed(u"[Buttons]", u"[BUTTONS]")),
              Contains("x:60: not a valid header, so its section is ignored: \"[BUTTONS]\""));
}

TEST(LanguageChecker, ReportsTextsThatTheCountLeavesOut) {
  const auto report =
      checkLanguage(languageBytes(changed(u"26\r\nModulInfo 0", u"25\r\nModulInfo 0")));
  EXPECT_THAT(linesOf(report.ignored), ElementsAre("x:59: ignored: ModulInfo 25"));
  EXPECT_THAT(linesOf(report.problems),
              ElementsAre("x: section [ModulInfo] has 25 of 26 texts; the others stay empty"));
}

TEST(LanguageChecker, ReportsAMissingSection) {
  EXPECT_THAT(problemsOf(changed(u"[Buttons]\r\n1\r\nButtons 0\r\n", u"")),
              ElementsAre("x: section [Buttons] has 0 of 1 texts; the others stay empty"));
}

TEST(LanguageChecker, ReportsARepeatedSection) {
  EXPECT_THAT(problemsOf(completeText() + u"[Title]\r\n1\r\nagain\r\n"),
              ElementsAre("x:100: section [Title] overwrites the one in line 1"));
}

TEST(LanguageChecker, ReportsACountThatMakesTheControlRefuseTheFile) {
  const auto refused = [](std::u16string_view part, std::u16string_view by) {
    const auto report = checkLanguage(languageBytes(changed(part, by)));
    EXPECT_EQ(report.verdict,
              "cannot be used; the control falls back to its built-in German texts");
    return linesOf(report.problems);
  };
  EXPECT_THAT(
      refused(u"[Title]\r\n1", u"[Title]\r\n2"),
      ElementsAre("x:2: invalid number of texts \"2\" in section [Title]; the control refuses "
                  "the file"));
  EXPECT_THAT(
      refused(u"[Buttons]\r\n1\r\nButtons 0", u"[Buttons]\r\n-3"),
      Contains("x:61: invalid number of texts \"-3\" in section [Buttons]; the control refuses "
               "the file"));
}

TEST(LanguageChecker, ReportsACountThatIsNotANumber) {
  const auto report = checkLanguage(languageBytes(changed(u"[Buttons]\r\n1", u"[Buttons]\r\none")));
  EXPECT_THAT(report.verdict, AllOf(HasSubstr("error 13"), HasSubstr("[Buttons]")));
  EXPECT_THAT(linesOf(report.problems), Contains("x:61: \"one\" is not a number"));
}

TEST(LanguageChecker, ReportsTextsThatTheTableHasNoRoomFor) {
  const auto report = checkLanguage(
      languageBytes(changed(u"1\r\nButtons 0", u"5\r\nButtons 0\r\nb1\r\nb2\r\nb3\r\nb4")));
  EXPECT_THAT(report.verdict, HasSubstr("error 9"));
  EXPECT_THAT(linesOf(report.problems), Contains("x:66: section [Buttons] has room for 4 texts"));
  EXPECT_THAT(report.sections.back().texts, SizeIs(4));
}

TEST(LanguageChecker, ReportsAFileThatEndsTooEarly) {
  auto text = completeText();
  text.resize(text.find(u"Messages 34"));
  const auto report = checkLanguage(languageBytes(text));
  EXPECT_THAT(report.verdict, HasSubstr("error 62"));
  EXPECT_THAT(linesOf(report.problems), Contains(HasSubstr("x:99: the file ends after")));
  EXPECT_THAT(report.sections.back().texts, SizeIs(34));
}

TEST(LanguageChecker, ReportsAnOddByteAtTheEnd) {
  const auto report = checkLanguage(languageBytes(completeText()) + 'x');
  EXPECT_THAT(report.verdict, HasSubstr("error 62"));
  EXPECT_THAT(linesOf(report.problems), ElementsAre(HasSubstr("x:100: the file ends after")));
}

TEST(LanguageChecker, ReportsAFileOfTwoBytesOrLess) {
  for (const std::string bytes : {"", "\xFF", "\xFF\xFE"}) {
    const auto report = checkLanguage(bytes);
    EXPECT_THAT(report.verdict, HasSubstr("error 62"));
    EXPECT_THAT(linesOf(report.problems), Contains(HasSubstr("x:1: the file ends after")));
  }
}

TEST(LanguageChecker, ReportsAnotherEncoding) {
  const auto report = checkLanguage("[Title]\r\n1\r\nCancel");
  EXPECT_THAT(linesOf(report.problems),
              Contains(HasSubstr("x: the file does not start with the byte order mark FF FE")));
}

TEST(LanguageChecker, ReportsLinesThatEndInLfAlone) {
  EXPECT_THAT(problemsOf(changed(u"Buttons 0\r\n", u"Buttons\n0\r\n")),
              ElementsAre("x:62: the line contains control characters or damaged text: "
                          "\"Buttons<LF>0\""));
}

TEST(LanguageChecker, ReportsACharacterLostAfterCr) {
  EXPECT_THAT(problemsOf(changed(u"Buttons 0\r\n", u"Buttons 0\rX")),
              ElementsAre("x:62: CR is not followed by LF; the character after it is lost"));
}

TEST(LanguageChecker, CountsLinesAsEditorsDo) {
  const auto text = changed(u"MainFrame 3\r\n", u"Main\nFrame\r\n");
  const auto report = checkLanguage(languageBytes(text));
  EXPECT_EQ(report.sections[2].line, 33U);
}

TEST(LanguageChecker, AcceptsALastLineWithoutCrLf) {
  auto text = completeText();
  text.resize(text.size() - 2);
  EXPECT_THAT(problemsOf(text), IsEmpty());
}

TEST(LanguageChecker, ReportsAFileThatCannotBeRead) {
  const auto report = checkLanguageFile("/nowhere/MERIDEX_CONF.flg");
  EXPECT_EQ(report.language, 3);
  EXPECT_EQ(report.verdict, "cannot be used; the control falls back to its built-in German texts");
  EXPECT_THAT(linesOf(report.problems), ElementsAre("x: the file cannot be read"));
}

}  // namespace
}  // namespace tessara
