#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "simulator/Announcement.h"
#include "simulator/TemporaryFolder.h"

namespace tessara {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using namespace tessara::testing;

class AnnouncementTest : public ::testing::Test {
 protected:
  AnnouncementTest() { ::setenv("XDG_RUNTIME_DIR", runtime_.path().c_str(), 1); }
  ~AnnouncementTest() override { ::unsetenv("XDG_RUNTIME_DIR"); }

  [[nodiscard]] std::filesystem::path ports() const {
    return runtime_.path() / "tessara-conf" / "ports";
  }

  [[nodiscard]] std::set<std::string> files() const { return namesIn(ports()); }

  void write(const std::string& name, const std::string& text) const {
    std::filesystem::create_directories(ports());
    runtime_.write("tessara-conf/ports/" + name, text);
  }

  const TemporaryFolder runtime_;
};

std::vector<int> numbers() {
  std::vector<int> numbers;
  for (const RunningPort& port : runningPorts()) numbers.push_back(port.number);
  return numbers;
}

std::string entry(const std::string& device, ::pid_t process) {
  return nlohmann::json{{"device", device}, {"name", "\\Device\\SilabserX"}, {"pid", process}}
      .dump();
}

/// The number of a process that has ended.
::pid_t deadProcess() {
  const ::pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  ::waitpid(child, nullptr, 0);
  return child;
}

TEST_F(AnnouncementTest, IsASmallFileThatDescribesThePort) {
  const Announcement announcement("/dev/pts/5");
  EXPECT_EQ(announcement.number(), 100);
  const auto content = nlohmann::json::parse(runtime_.read("tessara-conf/ports/COM100"));
  EXPECT_EQ(content,
            (nlohmann::json{
                {"device", "/dev/pts/5"}, {"name", "\\Device\\Silabser100"}, {"pid", ::getpid()}}));
  EXPECT_THAT(files(), SizeIs(1)) << "nothing is left beside it";
}

TEST_F(AnnouncementTest, IsInAPrivateFolder) {
  const Announcement announcement("/dev/pts/5");
  for (const auto& folder : {ports(), ports().parent_path()}) {
    EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all);
  }
}

TEST_F(AnnouncementTest, IsFoundWhileItLasts) {
  EXPECT_THAT(runningPorts(), IsEmpty());
  {
    const Announcement announcement("/dev/pts/5");
    const auto running = runningPorts();
    ASSERT_THAT(running, SizeIs(1));
    EXPECT_EQ(running[0].number, 100);
    EXPECT_EQ(running[0].device, "/dev/pts/5");
    EXPECT_EQ(running[0].name, "\\Device\\Silabser100");
    EXPECT_EQ(running[0].process, ::getpid());
  }
  EXPECT_THAT(runningPorts(), IsEmpty());
  EXPECT_THAT(files(), IsEmpty());
}

TEST_F(AnnouncementTest, TakesTheLowestFreeNumber) {
  auto first = std::make_unique<Announcement>("/dev/pts/1");
  const Announcement second("/dev/pts/2");
  const Announcement third("/dev/pts/3");
  EXPECT_EQ(third.number(), 102);
  first.reset();
  const Announcement fourth("/dev/pts/4");
  EXPECT_EQ(fourth.number(), 100);
  EXPECT_THAT(numbers(), ElementsAre(100, 101, 102));
}

TEST_F(AnnouncementTest, KeepsItsNumberWhenTheDeviceChanges) {
  const Announcement announcement("/dev/pts/1");
  announcement.update("/dev/pts/9");
  ASSERT_THAT(runningPorts(), SizeIs(1));
  EXPECT_EQ(runningPorts()[0].device, "/dev/pts/9");
  EXPECT_EQ(runningPorts()[0].number, 100);
}

TEST_F(AnnouncementTest, HidesAnUnpluggedPortButKeepsItsNumber) {
  const Announcement announcement("/dev/pts/1");
  announcement.update("");
  EXPECT_THAT(runningPorts(), IsEmpty());
  EXPECT_EQ(Announcement("/dev/pts/2").number(), 101);
}

TEST_F(AnnouncementTest, OfAnEndedProcessIsIgnoredAndRemoved) {
  write("COM100", entry("/dev/pts/1", deadProcess()));
  write("COM101", entry("/dev/pts/2", ::getpid()));
  EXPECT_THAT(numbers(), ElementsAre(101));
  EXPECT_THAT(files(), ElementsAre("COM101"));
}

TEST_F(AnnouncementTest, TakesTheNumberOfAnEndedProcess) {
  write("COM100", entry("/dev/pts/1", deadProcess()));
  EXPECT_EQ(Announcement("/dev/pts/2").number(), 100);
}

TEST_F(AnnouncementTest, ThatIsInvalidIsIgnoredAndKept) {
  write("COM100", "not json");
  write("COM101", "{}");
  write("COM102", R"({"device": 1, "name": 2, "pid": "x"})");
  write("COM1x3", entry("/dev/pts/3", ::getpid()));
  write("notes", entry("/dev/pts/4", ::getpid()));
  std::filesystem::create_directory(ports() / "COM103");
  EXPECT_THAT(runningPorts(), IsEmpty());
  EXPECT_THAT(files(), SizeIs(6));
  EXPECT_EQ(Announcement("/dev/pts/5").number(), 104);
}

TEST_F(AnnouncementTest, IsSortedByNumber) {
  write("COM1000", entry("/dev/pts/1", ::getpid()));
  write("COM101", entry("/dev/pts/2", ::getpid()));
  write("COM100", entry("/dev/pts/3", ::getpid()));
  EXPECT_THAT(numbers(), ElementsAre(100, 101, 1000));
}

TEST_F(AnnouncementTest, IsNotTrustedInAFolderThatOthersCanWriteTo) {
  write("COM100", entry("/dev/pts/1", ::getpid()));
  EXPECT_THAT(runningPorts(), SizeIs(1));
  ::chmod(ports().c_str(), 0777);
  EXPECT_THAT(runningPorts(), IsEmpty());
  EXPECT_THROW(Announcement("/dev/pts/2"), std::system_error);
}

TEST_F(AnnouncementTest, FailsIfAFileHasTheNameOfTheFolder) {
  runtime_.write("tessara-conf", "");
  EXPECT_THROW(Announcement("/dev/pts/2"), std::system_error);
  EXPECT_THAT(runningPorts(), IsEmpty());
}

TEST_F(AnnouncementTest, IsInATemporaryFolderWithoutARuntimeFolder) {
  const auto expected = "/tmp/tessara-conf-" + std::to_string(::geteuid()) + "/ports";
  ::unsetenv("XDG_RUNTIME_DIR");
  EXPECT_EQ(announcementFolder(), expected);
  ::setenv("XDG_RUNTIME_DIR", "relative/path", 1);
  EXPECT_EQ(announcementFolder(), expected);
}

TEST_F(AnnouncementTest, GivesEachOfManyProcessesANumberOfItsOwn) {
  constexpr int processCount = 8;
  std::array<int, 2> go{};
  ASSERT_EQ(::pipe(go.data()), 0);
  std::vector<::pid_t> children;
  for (int index = 0; index < processCount; ++index) {
    children.push_back(::fork());
    if (children.back() == 0) {
      ::close(go[1]);
      const Announcement announcement("/dev/pts/1");
      char end = 0;
      (void)!::read(go[0], &end, 1);  // until the parent closes its end
      ::_exit(announcement.number() - firstSimulatedPort);
    }
  }
  while (numbers().size() < processCount) ::usleep(1000);
  ::close(go[1]);
  std::set<int> taken;
  for (const ::pid_t child : children) {
    int status = 0;
    ::waitpid(child, &status, 0);
    taken.insert(WEXITSTATUS(status));
  }
  ::close(go[0]);
  EXPECT_EQ(taken, (std::set<int>{0, 1, 2, 3, 4, 5, 6, 7}));
  EXPECT_THAT(runningPorts(), IsEmpty()) << "the children never took them back";
}

}  // namespace
}  // namespace tessara
