#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "simulator/Announcement.h"
#include "simulator/RunSimulator.h"
#include "simulator/SampleModule.h"
#include "simulator/SerialClient.h"
#include "simulator/TemporaryFolder.h"

namespace tessara {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using ::testing::SizeIs;
using namespace tessara::testing;

constexpr auto moduleText = R"({"vendorId": 49, "groupId": 1, "familyId": 15, "deviceId": 151,
  "firmware": "1.234", "name": "TESSARA TM 151"})";

constexpr auto vanishing = R"({"vendorId": 49, "groupId": 1, "familyId": 15, "deviceId": 151,
  "firmware": "1.234",
  "faults": [{"kind": "unplug", "at": 1, "replugAfter": 10}]})";

/// runSimulator() in a process of its own, as the command line runs it.
class SimulatorProcess {
 public:
  explicit SimulatorProcess(const std::vector<std::string>& files, bool paced = false) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) throw std::runtime_error("no pipe");
    process_ = ::fork();
    if (process_ == 0) {
      ::dup2(pipe[1], STDOUT_FILENO);
      ::close(pipe[0]);
      ::close(pipe[1]);
      ::_exit(runSimulator(files, paced, std::cout, std::cerr));
    }
    ::close(pipe[1]);
    output_ = ::fdopen(pipe[0], "r");
  }
  ~SimulatorProcess() {
    end(SIGKILL);
    std::fclose(output_);
  }
  SimulatorProcess(const SimulatorProcess&) = delete;
  SimulatorProcess& operator=(const SimulatorProcess&) = delete;

  [[nodiscard]] std::string line() const {
    std::array<char, 512> text{};
    if (std::fgets(text.data(), text.size(), output_) == nullptr) return "";
    std::string line = text.data();
    if (!line.empty()) line.pop_back();
    return line;
  }

  /// The exit code after that signal; -1 if the signal itself ended the process.
  int end(int signal) {
    if (process_ == 0) return -1;
    ::kill(process_, signal);
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  ::pid_t process_ = 0;
  std::FILE* output_ = nullptr;
};

class RunSimulatorTest : public ::testing::Test {
 protected:
  RunSimulatorTest() { ::setenv("XDG_RUNTIME_DIR", folder_.path().c_str(), 1); }
  ~RunSimulatorTest() override { ::unsetenv("XDG_RUNTIME_DIR"); }

  const TemporaryFolder folder_;
};

/// The second word of a line of output.
std::string deviceIn(const std::string& line) {
  std::istringstream words(line);
  std::string port;
  std::string device;
  words >> port >> device;
  return device;
}

TEST_F(RunSimulatorTest, PrintsAnnouncesAndServesEachModule) {
  const std::string first = folder_.write("tm-151.json", moduleText);
  const std::string second = folder_.write("nameless.json", vanishing);
  SimulatorProcess simulator({first, second});
  const std::string firstLine = simulator.line();
  const std::string secondLine = simulator.line();
  EXPECT_THAT(firstLine, MatchesRegex("COM100  /dev/pts/[0-9]+  TESSARA TM 151 \\(tm-151.json\\)"));
  EXPECT_THAT(secondLine, MatchesRegex("COM101  /dev/pts/[0-9]+  \\(nameless.json\\)"));

  const auto running = runningPorts();
  ASSERT_THAT(running, SizeIs(2));
  EXPECT_EQ(running[0].device, deviceIn(firstLine));
  EXPECT_EQ(running[1].device, deviceIn(secondLine));
  EXPECT_EQ(SerialClient(running[0].device).exchange(readRequest(4, 1), 7), firmwareAnswer());
}

TEST_F(RunSimulatorTest, EndsOrderlyOnEachSignal) {
  const std::string file = folder_.write("tm-151.json", moduleText);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    SimulatorProcess simulator({file});
    ASSERT_THAT(simulator.line(), HasSubstr("COM100"));
    ASSERT_THAT(runningPorts(), SizeIs(1));
    EXPECT_EQ(simulator.end(signal), 0);
    EXPECT_THAT(namesIn(announcementFolder()), IsEmpty());
  }
}

TEST_F(RunSimulatorTest, LeavesNothingBehindWhenKilled) {
  const std::string file = folder_.write("tm-151.json", moduleText);
  SimulatorProcess simulator({file});
  ASSERT_THAT(simulator.line(), HasSubstr("COM100"));
  simulator.end(SIGKILL);
  EXPECT_THAT(runningPorts(), IsEmpty());
}

TEST_F(RunSimulatorTest, ReportsWhenAPortGoesAndComesBack) {
  SimulatorProcess simulator({folder_.write("nameless.json", vanishing)});
  const std::string device = deviceIn(simulator.line());
  const SerialClient client(device);
  EXPECT_EQ(client.exchange(readRequest(4, 1), 7), firmwareAnswer());
  EXPECT_EQ(simulator.line(), "COM100  unplugged");
  const std::string back = simulator.line();
  EXPECT_THAT(back, MatchesRegex("COM100  /dev/pts/[0-9]+  \\(nameless.json\\)"));
  ASSERT_THAT(runningPorts(), SizeIs(1));
  EXPECT_EQ(runningPorts()[0].device, deviceIn(back));
  EXPECT_EQ(SerialClient(deviceIn(back)).exchange(readRequest(4, 1), 7), firmwareAnswer());
}

TEST_F(RunSimulatorTest, PacesIfOrdered) {
  SimulatorProcess simulator({folder_.write("tm-151.json", moduleText)}, true);
  const SerialClient client(deviceIn(simulator.line()), B1200);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(client.exchange(readRequest(4, 1), 7), firmwareAnswer());
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(150));
}

TEST_F(RunSimulatorTest, ServesNothingIfOneFileIsBad) {
  std::ostringstream out;
  std::ostringstream err;
  const std::string good = folder_.write("good.json", moduleText);
  const std::string bad = folder_.write("bad.json", "{");
  EXPECT_EQ(runSimulator({good, bad}, false, out, err), 2);
  EXPECT_EQ(out.str(), "");
  EXPECT_THAT(err.str(), HasSubstr(bad + ": invalid JSON at line 1"));
  EXPECT_THAT(runningPorts(), IsEmpty());
}

TEST_F(RunSimulatorTest, SaysWhyItCannotAnnounce) {
  folder_.write("tessara-conf", "a file in place of the folder");
  std::ostringstream out;
  std::ostringstream err;
  EXPECT_EQ(runSimulator({folder_.write("good.json", moduleText)}, false, out, err), 2);
  EXPECT_THAT(err.str(), HasSubstr("tessara-conf"));
}

}  // namespace
}  // namespace tessara
