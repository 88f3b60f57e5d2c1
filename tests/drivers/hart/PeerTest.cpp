// The driver against an independent module.

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <system_error>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "drivers/hart/HartBench.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;

/// A module written in Python, which runs until the object ends.
class PythonModule {
 public:
  PythonModule() {
    std::array<int, 2> output{};
    std::array<int, 2> input{};
    if (::pipe2(output.data(), O_CLOEXEC) != 0 || ::pipe2(input.data(), O_CLOEXEC) != 0) {
      throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    child_ = ::fork();
    if (child_ == 0) {
      ::dup2(input[0], STDIN_FILENO);
      ::dup2(output[1], STDOUT_FILENO);
      ::execl("/usr/bin/python3", "python3", HART_MODULE, nullptr);
      ::_exit(127);
    }
    ::close(input[0]);
    ::close(output[1]);
    input_ = input[1];
    std::FILE* lines = ::fdopen(output[0], "r");
    std::array<char, 64> line{};
    if (std::fgets(line.data(), line.size(), lines) != nullptr) device_ = line.data();
    std::fclose(lines);
    if (!device_.empty()) device_.pop_back();
  }

  ~PythonModule() {
    ::close(input_);
    ::waitpid(child_, nullptr, 0);
  }

  PythonModule(const PythonModule&) = delete;
  PythonModule& operator=(const PythonModule&) = delete;

  [[nodiscard]] const std::string& device() const { return device_; }

 private:
  ::pid_t child_ = 0;
  int input_ = -1;
  std::string device_;
};

TEST(HartPeer, IsReadFromEndToEnd) {
  const PythonModule module;
  ASSERT_NE(module.device(), "");
  const NamedPorts ports({{3, module.device()}});
  HartDriver driver(ports, {.timings = brisk()});
  std::int16_t comPort = 3;
  std::int32_t rate = 9600;
  ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate)) << driver.connectFailure();
  std::uint8_t address = 64 + 3;
  EXPECT_THAT(driver.ReadDeviceIdentifier(address), ElementsAre(0xB0, 7, 0xE2, 2));
  EXPECT_THAT(driver.ReadInputRegisters(0, 20, 1, 12), ElementsAre(0, 0x40, 'P', 'E', 'E', 'R'));
  EXPECT_THAT(driver.ReadInputRegisters(0, 512, 1, 12), ElementsAre(0, 0x40, 0x55));
  EXPECT_THAT(errorOf([&] { driver.ReadInputRegisters(0, 99, 1, 12); }),
              EndsWith(": response code 64: command not implemented"));
  Cmd48Reply reply{};
  EXPECT_EQ(driver.CMD48(reply), 9);
  EXPECT_EQ(reply[0], 1);
  EXPECT_EQ(reply[1], 2);
  driver.CloseSerialConnection();
}

}  // namespace
}  // namespace tessara::testing
