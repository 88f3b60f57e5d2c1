#include <csignal>
#include <functional>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

#include "Programs.h"
#include "base/Text.h"
#include "linux/LinuxShell.h"

namespace tessara::testing {
namespace {

constexpr ::uid_t nobody = 65534;

class ShellTest : public Programs {
 protected:
  ShellTest() { put(help(), "ITSF and so on"); }

  [[nodiscard]] std::filesystem::path help() const { return folder() / "Help_001.chm"; }

  /// The result of opening it as the control does.
  std::int32_t openHere(const std::string& file) {
    return shell.ShellExecuteA(0, u"Open", fromUtf8(file), {}, fromUtf8(folder().string()),
                               Shell::showNormal);
  }
  std::int32_t open(const std::string& file, ::uid_t user = 0) {
    return inNewProcess([&] { return openHere(file); }, user);
  }

  /// What a registered command line starts for a help file: the arguments, one a line.
  std::string argumentsFor(const std::string& exec, const std::string& file) {
    registerCommand(exec);
    std::filesystem::remove(report());
    EXPECT_EQ(open(file), LinuxShell::opened) << exec;
    const std::string lines = reported();
    return lines.substr(lines.find('\n') + 1);
  }

  std::vector<std::pair<std::string, std::int32_t>> launches;
  LinuxShell shell{[this](const std::string& file, std::int32_t result) {
    launches.emplace_back(file, result);
  }};
};

TEST_F(ShellTest, OpensAFileWithTheProgramThatIsRegisteredForIt) {
  registerViewer();
  EXPECT_EQ(open(help()), 42);
  EXPECT_EQ(reported(), "viewer\n" + help().string() + "\n");
}

TEST_F(ShellTest, TakesBackslashesForSeparators) {
  registerViewer();
  EXPECT_EQ(open(folder().string() + "\\Help_001.chm"), 42);
  EXPECT_EQ(reported(), "viewer\n" + help().string() + "\n");
}

TEST_F(ShellTest, ARelativePathBeginsInTheFolder) {
  registerViewer();
  EXPECT_EQ(open("Help_001.chm"), 42);
  EXPECT_EQ(reported(), "viewer\n" + help().string() + "\n");
}

TEST_F(ShellTest, TheUsersChoiceComesBeforeTheProgramOfTheSystem) {
  registerViewer();
  entry(userApplications() / "own.desktop", program("own") + " %f");
  put(folder() / "user" / "mimeapps.list",
      "[Default Applications]\napplication/vnd.ms-htmlhelp=own.desktop\n");
  EXPECT_EQ(open(help()), 42);
  EXPECT_EQ(reported(), "own\n" + help().string() + "\n");
}

TEST_F(ShellTest, AProgramThatHasGoneIsSkipped) {
  registerViewer();
  entry(applications() / "gone.desktop", "no-such-program-here %f");
  entry(applications() / "untried.desktop", program("untried") + " %f",
        "TryExec=no-such-program-here\n");
  put(folder() / "user" / "mimeapps.list",
      "[Default Applications]\n"
      "application/vnd.ms-htmlhelp=absent.desktop;gone.desktop;untried.desktop\n");
  EXPECT_EQ(open(help()), 42);
  EXPECT_EQ(reported(), "viewer\n" + help().string() + "\n");
}

TEST_F(ShellTest, AProgramForAMoreGeneralTypeOpensTheFile) {
  entry(applications() / "reader.desktop", program("reader") + " %f");
  put(applications() / "mimeinfo.cache", "[MIME Cache]\ntext/plain=reader.desktop;\n");
  put(folder() / "list.csv", "a,b\n");
  EXPECT_EQ(open(folder() / "list.csv"), 42);
  EXPECT_EQ(reported(), "reader\n" + (folder() / "list.csv").string() + "\n");
}

TEST_F(ShellTest, FieldCodesStandForThePathOfTheFile) {
  const std::string viewer = program("viewer");
  const std::string file = folder() / "a file 100%.chm";
  put(file, "ITSF");
  for (const std::string code : {"%f", "%F", "%u", "%U"}) {
    EXPECT_EQ(argumentsFor(viewer + " --open " + code, file), "--open\n" + file + "\n");
  }
}

TEST_F(ShellTest, AProgramThatAsksForNoFileGetsItAtTheEnd) {
  EXPECT_EQ(argumentsFor(program("viewer") + " \"one two\"", help()),
            "one two\n" + help().string() + "\n");
}

TEST_F(ShellTest, AnAbsentFileIs2) {
  registerViewer();
  EXPECT_EQ(open(folder() / "Help_049.chm"), 2);
}

TEST_F(ShellTest, AnAbsentFolderIs3) {
  registerViewer();
  EXPECT_EQ(open(folder() / "absent" / "Help_001.chm"), 3);
  EXPECT_EQ(open(help() / "Help_001.chm"), 3);
}

TEST_F(ShellTest, AnAbsentWorkingFolderIs3) {
  registerViewer();
  EXPECT_EQ(shell.ShellExecuteA(0, u"Open", fromUtf8(help().string()), {},
                                fromUtf8((folder() / "absent").string()), Shell::showNormal),
            3);
}

TEST_F(ShellTest, AFileThatMayNotBeReadIs5) {
  registerViewer();
  ASSERT_EQ(::chmod(folder().c_str(), 0755), 0);
  ASSERT_EQ(::chmod(help().c_str(), 0), 0);
  EXPECT_EQ(open(help(), nobody), 5);
}

TEST_F(ShellTest, AFileInAFolderThatMayNotBeEnteredIs5) {
  registerViewer();
  ASSERT_EQ(::chmod(folder().c_str(), 0755), 0);
  const auto closed = folder() / "closed";
  put(closed / "Help_001.chm", "ITSF");
  ASSERT_EQ(::chmod(closed.c_str(), 0), 0);
  EXPECT_EQ(open(closed / "Help_001.chm", nobody), 5);
  ASSERT_EQ(::chmod(closed.c_str(), 0700), 0);
}

TEST_F(ShellTest, AWorkingFolderThatMayNotBeEnteredIs5) {
  registerViewer();
  ASSERT_EQ(::chmod(folder().c_str(), 0755), 0);
  const auto closed = folder() / "closed";
  std::filesystem::create_directory(closed);
  ASSERT_EQ(::chmod(closed.c_str(), 0), 0);
  const auto openThere = [&] {
    return shell.ShellExecuteA(0, u"Open", fromUtf8(help().string()), {}, fromUtf8(closed.string()),
                               Shell::showNormal);
  };
  EXPECT_EQ(inNewProcess(openThere, nobody), 5);
  ASSERT_EQ(::chmod(closed.c_str(), 0700), 0);
}

TEST_F(ShellTest, AProgramThatCannotBeStartedIs5) {
  const std::string viewer = program("viewer");
  registerCommand(viewer + " %f", "Path=" + (folder() / "absent").string() + "\n");
  EXPECT_EQ(open(help()), 5);
}

TEST_F(ShellTest, ADamagedHelpFileIs11) {
  registerViewer();
  for (const char* bytes : {"", "ITS", "<html>", "itsf and so on"}) {
    put(help(), bytes);
    EXPECT_EQ(open(help()), 11) << bytes;
  }
}

TEST_F(ShellTest, AFileOfATypeThatNoProgramIsRegisteredForIs31) {
  EXPECT_EQ(open(help()), 31);
}

TEST_F(ShellTest, AFileOfUnknownTypeIs31) {
  entry(applications() / "bytes.desktop", program("bytes") + " %f");
  put(applications() / "mimeinfo.cache", "[MIME Cache]\napplication/octet-stream=bytes.desktop;\n");
  put(folder() / "file.unknown", std::string("\x01\0\x02", 3));
  EXPECT_EQ(open(folder() / "file.unknown"), 31);
}

TEST_F(ShellTest, AnotherOperationThanOpenIs31) {
  registerViewer();
  EXPECT_EQ(shell.ShellExecuteA(0, u"Print", fromUtf8(help().string()), {}, {}, 1), 31);
}

TEST_F(ShellTest, APipeIsNotWaitedFor) {
  registerViewer();
  const auto pipe = folder() / "pipe.chm";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(open(pipe), 31);
}

TEST_F(ShellTest, NoShellReadsTheName) {
  registerViewer();
  const std::string name = "a \"b\" $(touch injected) ;`id` '%f %u' \xC3\xA9.chm";
  put(folder() / name, "ITSF");
  EXPECT_EQ(open(folder() / name), 42);
  EXPECT_EQ(reported(), "viewer\n" + (folder() / name).string() + "\n");
  EXPECT_FALSE(std::filesystem::exists(folder() / "injected"));
}

TEST_F(ShellTest, MailAndWebAddressesGoToTheProgramsOfTheirScheme) {
  entry(applications() / "mailer.desktop", program("mailer") + " %u");
  put(applications() / "mimeinfo.cache", "[MIME Cache]\nx-scheme-handler/mailto=mailer.desktop;\n");
  EXPECT_EQ(open("https://maker.example/a?b=c&d"), 31);
  EXPECT_EQ(open("mailto:info@maker.example"), 42);
  EXPECT_EQ(reported(), "mailer\nmailto:info@maker.example\n");
}

TEST_F(ShellTest, ADriveIsNotAnAddress) {
  EXPECT_EQ(open("C:\\Help_001.chm"), 3);
}

TEST_F(ShellTest, TheProgramIsNotWaitedForAndIsNotAChild) {
  const auto gate = folder() / "gate";
  registerViewer("while [ ! -e '" + gate.string() + "' ]; do sleep 0.02; done");
  const int children = inNewProcess([this] {
    return openHere(help()) == LinuxShell::opened && ::waitpid(-1, nullptr, WNOHANG) == -1 ? 0 : 1;
  });
  EXPECT_EQ(children, 0);
  EXPECT_FALSE(std::filesystem::exists(report()));
  put(gate, "");
  EXPECT_NE(reported(), "");
}

TEST_F(ShellTest, AProgramThatCannotBeStartedLeavesNoChild) {
  registerCommand(program("viewer") + " %f", "Path=" + (folder() / "absent").string() + "\n");
  const int children = inNewProcess([this] {
    return openHere(help()) == Shell::accessDenied && ::waitpid(-1, nullptr, WNOHANG) == -1 ? 0 : 1;
  });
  EXPECT_EQ(children, 0);
}

TEST_F(ShellTest, TheProgramGetsNoOpenPortAndNoneOfTheStreams) {
  const auto port = folder() / "port";
  put(port, "");
  const auto seen = folder() / "descriptors";
  registerViewer("ls -l /proc/$$/fd > '" + seen.string() + "'");
  const int descriptor = ::open(port.c_str(), O_RDWR);
  ASSERT_GE(descriptor, 0);
  EXPECT_EQ(open(help()), 42);
  EXPECT_NE(reported(), "");
  ::close(descriptor);
  const std::string descriptors = bytesOf(seen);
  EXPECT_EQ(descriptors.find(port.string()), std::string::npos) << descriptors;
  // The second one leads into the list itself.
  for (const char* stream : {" 0 -> /dev/null", " 2 -> /dev/null"}) {
    EXPECT_NE(descriptors.find(stream), std::string::npos) << descriptors;
  }
}

TEST_F(ShellTest, TheProgramDoesNotIgnoreBrokenPipesAndHasASessionOfItsOwn) {
  const auto seen = folder() / "status";
  registerViewer("grep SigIgn /proc/$$/status > '" + seen.string() +
                 "'; cut -d' ' -f6 /proc/$$/stat >> '" + seen.string() + "'; echo $$ >> '" +
                 seen.string() + "'");
  const int result = inNewProcess([this] {
    std::signal(SIGPIPE, SIG_IGN);
    return openHere(help());
  });
  EXPECT_EQ(result, 42);
  EXPECT_NE(reported(), "");
  std::istringstream status(bytesOf(seen));
  std::string ignored;
  long session = 0;
  long process = 1;
  status >> ignored >> ignored >> session >> process;
  EXPECT_EQ(ignored, "0000000000000000");
  EXPECT_EQ(session, process);
}

TEST_F(ShellTest, TheProgramRunsInTheFolder) {
  const auto where = folder() / "where";
  registerViewer("pwd -P > '" + where.string() + "'");
  EXPECT_EQ(open(help()), 42);
  EXPECT_NE(reported(), "");
  EXPECT_EQ(bytesOf(where), std::filesystem::canonical(folder()).string() + "\n");
}

TEST_F(ShellTest, TheFolderOfTheDesktopEntryComesFirst) {
  const auto where = folder() / "where";
  registerCommand(program("viewer", "pwd -P > '" + where.string() + "'") + " %f", "Path=/usr\n");
  EXPECT_EQ(open(help()), 42);
  EXPECT_NE(reported(), "");
  EXPECT_EQ(bytesOf(where), "/usr\n");
}

TEST_F(ShellTest, ReportsEachLaunchAndItsResult) {
  EXPECT_EQ(openHere(folder().string() + "\\Help_049.chm"), 2);
  EXPECT_EQ(openHere("/no/such/folder/Help_001.chm"), 3);
  const std::vector<std::pair<std::string, std::int32_t>> expected{
      {(folder() / "Help_049.chm").string(), 2}, {"/no/such/folder/Help_001.chm", 3}};
  EXPECT_EQ(launches, expected);
}

}  // namespace
}  // namespace tessara::testing
