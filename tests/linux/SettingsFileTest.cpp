#include <stdexcept>

#include <gmock/gmock.h>

#include "linux/SettingsFile.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Pair;
using ::testing::UnorderedElementsAre;

constexpr const char* ofATechnician =
    "; bench 3\n"
    "\n"
    "[Ports]\n"
    "# the red cable\n"
    "COM9\\Name=\\Device\\Silabser9\n"
    "\n"
    "; the blue one\n"
    "COM10\\Device=/dev/ttyS9 ; second card\n"
    "\n"
    "\n"
    "# what the panel shows\n"
    "[Settings]\n"
    "COM%20Port=3\n"
    "\n"
    "[Foreign]\n"
    "Name[de]=Gerät\n"
    "Encoding=ISO-8859-1\n"
    "odd[1=x\n"
    "Blob=@ByteArray(\\x1\\0)\n"
    "; the end\n";

std::string withChange(const std::string& contents, const std::string& name,
                       const std::string& raw) {
  SettingsFile file(contents);
  file.set(name, raw);
  return file.contents();
}

std::string replaced(std::string text, const std::string& part, const std::string& other) {
  return text.replace(text.find(part), part.size(), other);
}

TEST(SettingsFile, WritesWhatItHasRead) {
  EXPECT_EQ(SettingsFile(ofATechnician).contents(), ofATechnician);
  EXPECT_EQ(SettingsFile("").contents(), "");
  EXPECT_EQ(SettingsFile("; only a comment\n").contents(), "; only a comment\n");
  EXPECT_EQ(SettingsFile("#;\n#^\n#$\n[A]\n#^\n#;#;\nb=c\n#$\nd=e\n#^").contents(),
            "#;\n#^\n#$\n[A]\n#^\n#;#;\nb=c\n#$\nd=e\n#^\n");
}

TEST(SettingsFile, ChangesAValueAndNothingElse) {
  EXPECT_EQ(withChange(ofATechnician, "Settings/COM Port", "9"),
            replaced(ofATechnician, "COM%20Port=3", "COM%20Port=9"));
  EXPECT_EQ(withChange(ofATechnician, "Ports/COM9/Name", "x"),
            replaced(ofATechnician, "\\Device\\Silabser9", "x"));
}

TEST(SettingsFile, AddsAValueBehindTheOthersOfItsGroupAndAboveTheCommentsOfTheNext) {
  EXPECT_EQ(withChange(ofATechnician, "Ports/COM11/Device", "/dev/x"),
            replaced(ofATechnician, "second card\n", "second card\nCOM11\\Device=/dev/x\n"));
  EXPECT_EQ(withChange(ofATechnician, "Foreign/New", "1"),
            replaced(ofATechnician, "; the end\n", "New=1\n; the end\n"));
}

TEST(SettingsFile, AddsAGroupBehindTheOthers) {
  EXPECT_EQ(withChange("[A]\nb=c\n", "Settings/Language", "2"),
            "[A]\nb=c\n\n[Settings]\nLanguage=2\n");
  EXPECT_EQ(withChange("[Ports]\nCOM9\\Device=x\nCOM0\n; the end\n", "Settings/Language", "2"),
            "[Ports]\nCOM9\\Device=x\nCOM0\n; the end\n\n[Settings]\nLanguage=2\n");
  EXPECT_EQ(withChange("; only a comment\n", "Settings/Language", "2"),
            "; only a comment\n\n[Settings]\nLanguage=2\n");
}

TEST(SettingsFile, RemovesEveryLineOfAName) {
  SettingsFile file("[Settings]\nLanguage=1\nLogo=a\nLanguage=2\n[Settings]\nLanguage=3\n");
  EXPECT_EQ(file.value("Settings/Language"), "3");
  file.remove("Settings/Language");
  EXPECT_EQ(file.contents(), "[Settings]\nLogo=a\n");
  EXPECT_FALSE(file.contains("Settings/Language"));
}

TEST(SettingsFile, ReadsNamesInEveryFormThatHasBeenWritten) {
  EXPECT_THAT(
      SettingsFile("Loose=1\n[General]\nTight=2\n[%General]\nNamed=3\n"
                   "[Settings]\nCOM Port = 4\nCOM%20Port%20=5\n[Ports/COM8]\nDevice=6\n"
                   "[Ports]\nCOM9\\Device=7\nCOM10/Device=8\n[ Blank ]\nx%5Cy%ZZ%E4=9\n")
          .values(),
      UnorderedElementsAre(Pair("Loose", "1"), Pair("Tight", "2"), Pair("General/Named", "3"),
                           Pair("Settings/COM Port", "4"), Pair("Settings/COM Port ", "5"),
                           Pair("Ports/COM8/Device", "6"), Pair("Ports/COM9/Device", "7"),
                           Pair("Ports/COM10/Device", "8"), Pair("Blank/x%5Cy%ZZ%E4", "9")));
}

TEST(SettingsFile, WritesNamesInTheFormThatHasAlwaysBeenWritten) {
  SettingsFile file("");
  file.set("Settings/COM Port", "3");
  file.set("Ports/COM9/Device", "/dev/x");
  file.set("General/Named", "1");
  file.set("Loose", "2");
  EXPECT_EQ(file.contents(),
            "[Settings]\nCOM%20Port=3\n\n[Ports]\nCOM9\\Device=/dev/x\n\n[%General]\nNamed=1\n\n"
            "[General]\nLoose=2\n");
}

TEST(SettingsFile, NamesAreCaseSensitive) {
  SettingsFile file("[settings]\nLanguage=1\n[Settings]\nlanguage=2\n");
  EXPECT_FALSE(file.contains("Settings/Language"));
}

TEST(SettingsFile, ReadsWindowsLineEndsAndAByteOrderMark) {
  SettingsFile file("\xef\xbb\xbf; x\r\n[Settings]\r\nLanguage=2\r\n");
  EXPECT_EQ(file.value("Settings/Language"), "2");
  EXPECT_EQ(file.contents(), "; x\n[Settings]\nLanguage=2\n");
}

TEST(SettingsFile, PassesOverABadLineAmongThePortsAndKeepsIt) {
  const std::string contents =
      "[Ports]\nCOM0\nCOM9\\Device=/dev/x\n=y\n; a comment\n[Settings]\nLanguage=1\n";
  SettingsFile file(contents);
  EXPECT_THAT(file.skippedLines(),
              ElementsAre(HasSubstr("line 2: \"COM0\" is neither [group] nor name=value"),
                          HasSubstr("line 4: \"=y\" is neither")));
  EXPECT_EQ(file.value("Ports/COM9/Device"), "/dev/x");
  file.set("Settings/Language", "2");
  EXPECT_EQ(file.contents(), replaced(contents, "Language=1", "Language=2"));
}

TEST(SettingsFile, RefusesABrokenGroupAmongThePorts) {
  EXPECT_THROW(SettingsFile("[Ports]\n[Settings\n"), std::runtime_error);
  EXPECT_THROW(SettingsFile(std::string_view("[Ports]\nCOM9\0=x\n", 16)), std::runtime_error);
}

}  // namespace
}  // namespace tessara::testing
