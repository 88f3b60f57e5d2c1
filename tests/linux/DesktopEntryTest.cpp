#include <QStandardPaths>

#include "Programs.h"
#include "linux/DesktopEntry.h"

namespace tessara::testing {
namespace {

class DesktopEntryTest : public Programs {
 protected:
  DesktopEntryTest() {
    program("viewer");
    const char* path = ::getenv("PATH");
    ::setenv("PATH", ((folder() / "bin").string() + ":" + (path == nullptr ? "" : path)).c_str(),
             1);
  }

  [[nodiscard]] QString file() const {
    return QString::fromStdString((applications() / "viewer.desktop").string());
  }
  /// The arguments that the command line of an entry gives for /a file.
  [[nodiscard]] QStringList argumentsOf(const std::string& exec, const std::string& more = {},
                                        const QString& target = "/a file") const {
    entry(applications() / "viewer.desktop", exec, more);
    const auto found = commandLineOf(file(), target);
    return found ? found->arguments : QStringList{"no command line"};
  }
  [[nodiscard]] bool starts(const std::string& exec, const std::string& more = {}) const {
    entry(applications() / "viewer.desktop", exec, more);
    return commandLineOf(file(), "/a file").has_value();
  }
};

TEST_F(DesktopEntryTest, FileCodesBecomeThePathAndAddressCodesItsAddress) {
  for (const char* code : {"%f", "%F"}) {
    EXPECT_EQ(argumentsOf(std::string("viewer ") + code), QStringList{"/a file"});
  }
  for (const char* code : {"%u", "%U"}) {
    EXPECT_EQ(argumentsOf(std::string("viewer ") + code), QStringList{"file:///a%20file"});
    EXPECT_EQ(argumentsOf(std::string("viewer ") + code, {}, "mailto:a@b"),
              QStringList{"mailto:a@b"});
  }
}

TEST_F(DesktopEntryTest, AProgramThatAsksForNoFileIsGivenItAtTheEnd) {
  EXPECT_EQ(argumentsOf("viewer --help"), QStringList({"--help", "/a file"}));
}

TEST_F(DesktopEntryTest, OtherCodesBecomeWhatTheyStandFor) {
  EXPECT_EQ(argumentsOf("viewer %i %c %k 100%% --open=%f", "Icon=book\n"),
            QStringList({"--icon", "book", "Viewer", file(), "100%", "--open=/a file"}));
}

TEST_F(DesktopEntryTest, OutdatedCodesAndAnAbsentIconVanish) {
  EXPECT_EQ(argumentsOf("viewer %i %d %D %n %N %v %m %f"), QStringList{"/a file"});
}

TEST_F(DesktopEntryTest, QuotesKeepWordsTogetherAndCodesAsTheyAre) {
  EXPECT_EQ(argumentsOf(R"(viewer "one two" "%f" "a \\"quote\\" and \\$" "" %f)"),
            QStringList({"one two", "%f", "a \"quote\" and $", "", "/a file"}));
}

TEST_F(DesktopEntryTest, EscapesOfTheFileAreUndone) {
  EXPECT_EQ(argumentsOf(R"(viewer a\sb\\\\c %f)"), QStringList({"a", "b\\\\c", "/a file"}));
}

TEST_F(DesktopEntryTest, AnEntryThatStartsNothingIsNone) {
  EXPECT_FALSE(starts(""));
  EXPECT_FALSE(starts("viewer \"open"));
  EXPECT_FALSE(starts("no-such-program-here %f"));
  EXPECT_FALSE(starts("viewer %f", "Hidden=true\n"));
  EXPECT_FALSE(starts("viewer %f", "TryExec=no-such-program-here\n"));
  EXPECT_TRUE(starts("viewer %f", "TryExec=viewer\n"));
  put(applications() / "viewer.desktop", "[Desktop Entry]\nType=Link\nExec=viewer\n");
  EXPECT_FALSE(commandLineOf(file(), "/a file").has_value());
  EXPECT_FALSE(commandLineOf(file() + ".absent", "/a file").has_value());
}

TEST_F(DesktopEntryTest, AProgramForTheTerminalRunsInOne) {
  EXPECT_EQ(starts("viewer %f", "Terminal=true\n"),
            !QStandardPaths::findExecutable("x-terminal-emulator").isEmpty());
  program("x-terminal-emulator");
  entry(applications() / "viewer.desktop", "viewer %f", "Terminal=true\n");
  const auto found = commandLineOf(file(), "/a file");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->program, "x-terminal-emulator");
  EXPECT_EQ(found->arguments, QStringList({"-e", "viewer", "/a file"}));
}

TEST_F(DesktopEntryTest, TheFolderOfTheEntryIsKept) {
  entry(applications() / "viewer.desktop", "viewer %f", "Path=/opt/my\\sviewer\n");
  EXPECT_EQ(commandLineOf(file(), "/a file")->folder, "/opt/my viewer");
}

TEST_F(DesktopEntryTest, AKeyFileHasGroupsAndPassesOverRemarks) {
  put(folder() / "keys", "# remark\nloose=1\n[A]\nx = 1=2 \n#y=3\n[B]\nx=4;;5;\nno value\n");
  const KeyFile keys(QString::fromStdString((folder() / "keys").string()));
  EXPECT_EQ(keys.value("A", "x"), "1=2");
  EXPECT_EQ(keys.value("A", "y"), "");
  EXPECT_EQ(keys.list("B", "x"), QStringList({"4", "5"}));
  EXPECT_EQ(keys.value("C", "x"), "");
}

}  // namespace
}  // namespace tessara::testing
