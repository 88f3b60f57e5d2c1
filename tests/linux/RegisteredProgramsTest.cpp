#include "Programs.h"
#include "linux/RegisteredPrograms.h"

namespace tessara::testing {
namespace {

class RegisteredProgramsTest : public Programs {
 protected:
  RegisteredProgramsTest() {
    for (const char* name : {"one", "two", "three"}) {
      entry(applications() / (std::string(name) + ".desktop"), program(name) + " %f");
    }
  }

  /// The name of the program for the types; empty for none.
  static std::string programFor(const QStringList& types) {
    const auto found = registeredProgram(types, "/file");
    return found ? std::filesystem::path(found->program.toStdString()).filename().string() : "";
  }
};

TEST_F(RegisteredProgramsTest, WithoutAnAssociationThereIsNone) {
  EXPECT_EQ(programFor({"text/a"}), "");
}

TEST_F(RegisteredProgramsTest, WhatProgramsSayOfThemselvesIsTheLastWord) {
  put(applications() / "mimeinfo.cache", "[MIME Cache]\ntext/a=two.desktop;one.desktop;\n");
  EXPECT_EQ(programFor({"text/a"}), "two");
}

TEST_F(RegisteredProgramsTest, TheChoiceOfTheUserComesBeforeThatOfTheSystem) {
  put(applications() / "mimeinfo.cache", "[MIME Cache]\ntext/a=one.desktop\n");
  put(folder() / "system" / "mimeapps.list", "[Default Applications]\ntext/a=two.desktop\n");
  EXPECT_EQ(programFor({"text/a"}), "two");
  put(folder() / "user" / "mimeapps.list", "[Default Applications]\ntext/a=three.desktop;\n");
  EXPECT_EQ(programFor({"text/a"}), "three");
}

TEST_F(RegisteredProgramsTest, TheListOfTheDesktopComesBeforeTheCommonOne) {
  put(folder() / "user" / "mimeapps.list", "[Default Applications]\ntext/a=one.desktop\n");
  put(folder() / "user" / "plain-mimeapps.list", "[Default Applications]\ntext/a=two.desktop\n");
  EXPECT_EQ(programFor({"text/a"}), "one");
  ::setenv("XDG_CURRENT_DESKTOP", "Other:Plain", 1);
  EXPECT_EQ(programFor({"text/a"}), "two");
}

TEST_F(RegisteredProgramsTest, AnAddedAssociationCountsAndARemovedOneDoesNot) {
  put(applications() / "mimeinfo.cache", "[MIME Cache]\ntext/a=one.desktop;two.desktop;\n");
  put(folder() / "user" / "mimeapps.list", "[Removed Associations]\ntext/a=one.desktop;\n");
  EXPECT_EQ(programFor({"text/a"}), "two");
  put(folder() / "user" / "mimeapps.list",
      "[Removed Associations]\ntext/a=one.desktop;\n[Added Associations]\ntext/a=three.desktop;\n");
  EXPECT_EQ(programFor({"text/a"}), "three");
}

TEST_F(RegisteredProgramsTest, AProgramThatHasGoneIsPassedOver) {
  put(folder() / "user" / "mimeapps.list",
      "[Default "
      "Applications]\ntext/a=gone.desktop;hidden.desktop;uninstalled.desktop;two.desktop\n");
  entry(applications() / "hidden.desktop", program("hidden"), "Hidden=true\n");
  entry(applications() / "uninstalled.desktop", "no-such-program-here %f");
  EXPECT_EQ(programFor({"text/a"}), "two");
}

TEST_F(RegisteredProgramsTest, TheClosestTypeWithAProgramDecides) {
  put(applications() / "mimeinfo.cache",
      "[MIME Cache]\ntext/plain=one.desktop\ntext/a=gone.desktop\ntext/b=two.desktop\n");
  EXPECT_EQ(programFor({"text/a", "text/b", "text/plain"}), "two");
  EXPECT_EQ(programFor({"text/a", "text/plain"}), "one");
}

TEST_F(RegisteredProgramsTest, AnEntryOfTheUserStandsInForThatOfTheSystem) {
  put(applications() / "mimeinfo.cache", "[MIME Cache]\ntext/a=one.desktop\n");
  entry(userApplications() / "one.desktop", program("own") + " %f");
  EXPECT_EQ(programFor({"text/a"}), "own");
}

TEST_F(RegisteredProgramsTest, ADashInAnIdMayStandForAFolder) {
  put(applications() / "mimeinfo.cache", "[MIME Cache]\ntext/a=maker-help-viewer.desktop\n");
  entry(applications() / "maker" / "help-viewer.desktop", program("help-viewer") + " %f");
  EXPECT_EQ(programFor({"text/a"}), "help-viewer");
}

}  // namespace
}  // namespace tessara::testing
