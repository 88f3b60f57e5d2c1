#include <functional>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Programs.h"
#include "base/Text.h"
#include "linux/LinuxShell.h"

namespace tessara::testing {
namespace {

class ShellTest : public Programs {
 protected:
  ShellTest() { put(help(), "ITSF and so on"); }

  [[nodiscard]] std::filesystem::path help() const { return folder() / "Help_001.chm"; }

  /// Opens as the control does.
  std::int32_t open(const std::string& file) {
    return shell.ShellExecuteA(0, u"Open", fromUtf8(file), {}, fromUtf8(folder().string()),
                               Shell::showNormal);
  }

  /// The result of `action` for somebody who is not allowed everything.
  static int asNobody(const std::function<int()>& action) {
    constexpr ::uid_t nobody = 65534;
    const ::pid_t child = ::fork();
    if (child == 0) {
      const bool isNobody = ::geteuid() != 0 || (::setgid(nobody) == 0 && ::setuid(nobody) == 0);
      ::_exit(isNobody ? action() : 255);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WEXITSTATUS(status);
  }

  std::vector<std::pair<std::string, std::int32_t>> launches;
  LinuxShell shell{[this](const std::string& file, std::int32_t result) {
    launches.emplace_back(file, result);
  }};
};

TEST_F(ShellTest, OpensAFileWithTheProgramThatIsRegisteredForIt) {
  registerViewer();
  EXPECT_GT(open(help()), Shell::lastFailure);
  EXPECT_EQ(reported(), "viewer\n" + help().string() + "\n");
}

TEST_F(ShellTest, TakesBackslashesForSeparators) {
  registerViewer();
  EXPECT_GT(open(folder().string() + "\\Help_001.chm"), Shell::lastFailure);
  EXPECT_EQ(reported(), "viewer\n" + help().string() + "\n");
}

TEST_F(ShellTest, ARelativePathBeginsInTheFolder) {
  registerViewer();
  EXPECT_GT(open("Help_001.chm"), Shell::lastFailure);
  EXPECT_EQ(reported(), "viewer\n" + help().string() + "\n");
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
  EXPECT_EQ(asNobody([this] { return open(help()); }), 5);
}

TEST_F(ShellTest, AFileInAFolderThatMayNotBeEnteredIs5) {
  registerViewer();
  ASSERT_EQ(::chmod(folder().c_str(), 0755), 0);
  const auto closed = folder() / "closed";
  put(closed / "Help_001.chm", "ITSF");
  ASSERT_EQ(::chmod(closed.c_str(), 0), 0);
  EXPECT_EQ(asNobody([&] { return open(closed / "Help_001.chm"); }), 5);
  ASSERT_EQ(::chmod(closed.c_str(), 0700), 0);
}

TEST_F(ShellTest, AHelpFileThatIsNoneIs11) {
  registerViewer();
  for (const char* bytes : {"", "ITS", "<html>", "itsf and so on"}) {
    put(help(), bytes);
    EXPECT_EQ(open(help()), 11) << bytes;
  }
}

TEST_F(ShellTest, AFileOfATypeThatNoProgramIsRegisteredForIs31) {
  EXPECT_EQ(open(help()), 31);
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
  EXPECT_GT(open(folder() / name), Shell::lastFailure);
  EXPECT_EQ(reported(), "viewer\n" + (folder() / name).string() + "\n");
  EXPECT_FALSE(std::filesystem::exists(folder() / "injected"));
}

TEST_F(ShellTest, MailAndWebAddressesGoToTheProgramsOfTheirScheme) {
  entry(applications() / "mailer.desktop", program("mailer") + " %u");
  put(applications() / "mimeinfo.cache", "[MIME Cache]\nx-scheme-handler/mailto=mailer.desktop;\n");
  EXPECT_EQ(open("https://maker.example/a?b=c&d"), 31);
  EXPECT_GT(open("mailto:info@maker.example"), Shell::lastFailure);
  EXPECT_EQ(reported(), "mailer\nmailto:info@maker.example\n");
}

TEST_F(ShellTest, TheProgramIsNotWaitedForAndLeavesNoZombie) {
  const auto gate = folder() / "gate";
  registerViewer("while [ ! -e '" + gate.string() + "' ]; do sleep 0.02; done");
  EXPECT_GT(open(help()), Shell::lastFailure);
  EXPECT_FALSE(std::filesystem::exists(report()));
  put(gate, "");
  EXPECT_NE(reported(), "");
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

TEST_F(ShellTest, TheProgramGetsNoOpenPortAndNoneOfTheStreams) {
  const auto port = folder() / "port";
  put(port, "");
  const auto seen = folder() / "descriptors";
  registerViewer("ls -l /proc/$$/fd > '" + seen.string() + "'");
  const int descriptor = ::open(port.c_str(), O_RDWR);
  ASSERT_GE(descriptor, 0);
  EXPECT_GT(open(help()), Shell::lastFailure);
  EXPECT_NE(reported(), "");
  ::close(descriptor);
  const std::string descriptors = bytesOf(seen);
  EXPECT_EQ(descriptors.find(port.string()), std::string::npos) << descriptors;
  // The second one leads into the list itself.
  for (const char* stream : {" 0 -> /dev/null", " 2 -> /dev/null"}) {
    EXPECT_NE(descriptors.find(stream), std::string::npos) << descriptors;
  }
}

TEST_F(ShellTest, AProgramThatCannotBeStartedIs5) {
  registerViewer();
  put(folder() / "bin" / "viewer", "#!/no/such/interpreter\n");
  EXPECT_EQ(open(help()), 5);
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

TEST_F(ShellTest, TheProgramRunsInTheFolder) {
  const auto where = folder() / "where";
  registerViewer("pwd -P > '" + where.string() + "'");
  EXPECT_GT(open(help()), Shell::lastFailure);
  EXPECT_NE(reported(), "");
  EXPECT_EQ(bytesOf(where), std::filesystem::canonical(folder()).string() + "\n");
}

TEST_F(ShellTest, TellsOfEachLaunchAndItsResult) {
  EXPECT_EQ(open(folder().string() + "\\Help_049.chm"), 2);
  EXPECT_EQ(open("mailto:info@maker.example"), 31);
  const std::vector<std::pair<std::string, std::int32_t>> expected{
      {(folder() / "Help_049.chm").string(), 2}, {"mailto:info@maker.example", 31}};
  EXPECT_EQ(launches, expected);
}

}  // namespace
}  // namespace tessara::testing
