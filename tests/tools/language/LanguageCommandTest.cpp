#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "localisation/LanguageFolder.h"
#include "tools/language/CompleteSource.h"
#include "tools/language/LanguageCommand.h"

namespace tessara {
namespace {

using testing::completeSource;
using ::testing::HasSubstr;
using testing::replaced;

class LanguageCommand : public testing::LanguageFolder {
 protected:
  bool check(const std::vector<std::filesystem::path>& files) {
    out.str("");
    return runLanguageCheck(files, out);
  }
  bool build(const std::string& source, const std::string& result) {
    err.str("");
    return runLanguageBuild(source, result, err);
  }

  [[nodiscard]] std::string pathOf(const std::string& name) const {
    return (folder() / name).string();
  }

  std::ostringstream out;
  std::ostringstream err;
};

TEST_F(LanguageCommand, BuildsAFileThatPassesTheCheck) {
  write("words.txt", completeSource());
  EXPECT_TRUE(build(pathOf("words.txt"), pathOf("MERIDEX_CONF.zlg")));
  EXPECT_EQ(err.str(), "");
  EXPECT_TRUE(check({pathOf("MERIDEX_CONF.zlg")}));
  EXPECT_TRUE(load(10));
}

TEST_F(LanguageCommand, CheckListsTheContentOfTheFile) {
  write("words.txt", replaced(completeSource(), "Buttons 0", "Anuluj"));
  build(pathOf("words.txt"), pathOf("MERIDEX_CONF.zlg"));
  check({pathOf("MERIDEX_CONF.zlg")});
  EXPECT_THAT(out.str(), HasSubstr("MERIDEX_CONF.zlg: loads\n"));
  EXPECT_THAT(out.str(), HasSubstr("  language 10, help file Help_001.chm\n"));
  EXPECT_THAT(out.str(), HasSubstr("  [Buttons], line 60: 1 of 1 texts\n     0  Anuluj\n"));
  EXPECT_THAT(out.str(), HasSubstr("\n    34  Messages 34\n"));
}

TEST_F(LanguageCommand, CheckReportsThatNoLanguageHasAFileOfThisName) {
  write("words.txt", completeSource());
  build(pathOf("words.txt"), pathOf("words.xlg"));
  EXPECT_TRUE(check({pathOf("words.xlg")}));
  EXPECT_THAT(out.str(), HasSubstr("  no language has a file of this name\n"));
}

TEST_F(LanguageCommand, CheckReportsProblemsWithFileAndLine) {
  write("words.txt", completeSource());
  build(pathOf("words.txt"), pathOf("good.elg"));
  write("bad.elg", "\xFF\xFE");
  EXPECT_FALSE(check({pathOf("bad.elg"), pathOf("good.elg")}));
  EXPECT_THAT(out.str(), HasSubstr(pathOf("bad.elg") + ":1: the file ends after 2 bytes"));
  EXPECT_THAT(out.str(), HasSubstr(pathOf("good.elg") + ": loads\n"));
}

TEST_F(LanguageCommand, CheckReportsAMissingFile) {
  EXPECT_FALSE(check({pathOf("none.elg")}));
  EXPECT_THAT(out.str(), HasSubstr(pathOf("none.elg") + ": the file cannot be read\n"));
}

TEST_F(LanguageCommand, BuildReportsProblemsAndWritesNothing) {
  write("words.txt", replaced(completeSource(), "0 = Buttons 0", "1 = Buttons 0"));
  EXPECT_FALSE(build(pathOf("words.txt"), pathOf("out.elg")));
  EXPECT_EQ(err.str(), pathOf("words.txt") + ":58: entry 1 found where entry 0 was expected\n");
  EXPECT_FALSE(std::filesystem::exists(pathOf("out.elg")));
}

TEST_F(LanguageCommand, BuildReportsAMissingSource) {
  EXPECT_FALSE(build(pathOf("none.txt"), pathOf("out.elg")));
  EXPECT_EQ(err.str(), pathOf("none.txt") + ": the file cannot be read\n");
}

TEST_F(LanguageCommand, BuildReportsAFolderAsSource) {
  EXPECT_FALSE(build(folder().string(), pathOf("out.elg")));
  EXPECT_EQ(err.str(), folder().string() + ": the file cannot be read\n");
}

TEST_F(LanguageCommand, BuildReportsAnEmptySource) {
  write("empty.txt", "");
  EXPECT_FALSE(build(pathOf("empty.txt"), pathOf("out.elg")));
  EXPECT_THAT(err.str(), HasSubstr("section [Title] is missing"));
}

TEST_F(LanguageCommand, BuildReportsAnOutputThatCannotBeWritten) {
  write("words.txt", completeSource());
  EXPECT_FALSE(build(pathOf("words.txt"), pathOf("none/out.elg")));
  EXPECT_THAT(err.str(), HasSubstr(pathOf("none/out.elg") + " cannot be written"));
}

TEST_F(LanguageCommand, BuildReportsAFullDisk) {
  write("words.txt", completeSource());
  EXPECT_FALSE(build(pathOf("words.txt"), "/dev/full"));
  EXPECT_THAT(err.str(), HasSubstr("/dev/full cannot be written"));
}

}  // namespace
}  // namespace tessara
