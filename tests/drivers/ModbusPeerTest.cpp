// The driver against an independent slave.

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include "drivers/ModbusLine.h"
#include "serial/PseudoTerminal.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::EndsWith;

/// Two pseudo-terminals connected as if by a cable.
class Cable {
 public:
  Cable() : thread_([this] { run(); }) {}

  ~Cable() {
    isEnding_ = true;
    thread_.join();
  }

  Cable(const Cable&) = delete;
  Cable& operator=(const Cable&) = delete;

  [[nodiscard]] const std::string& device(std::size_t end) const { return ends_.at(end).device(); }

 private:
  void run() {
    while (!isEnding_) {
      std::array<::pollfd, 2> watched{::pollfd{ends_[0].line(), POLLIN, 0},
                                      ::pollfd{ends_[1].line(), POLLIN, 0}};
      ::poll(watched.data(), watched.size(), 10);
      carry(watched[0], ends_[1].line());
      carry(watched[1], ends_[0].line());
    }
  }

  static void carry(const ::pollfd& from, int to) {
    std::array<std::uint8_t, 256> buffer{};
    if ((from.revents & POLLIN) != 0) {
      const ssize_t length = ::read(from.fd, buffer.data(), buffer.size());
      if (length > 0 && ::write(to, buffer.data(), static_cast<std::size_t>(length)) != length) {
        std::perror("cable");
      }
    }
  }

  std::array<PseudoTerminal, 2> ends_;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

/// pymodbus, serving a port until the object ends.
class PymodbusServer {
 public:
  explicit PymodbusServer(const std::string& device) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
      throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    output_ = pipe[0];
    child_ = ::fork();
    if (child_ == 0) {
      ::dup2(pipe[1], STDOUT_FILENO);
      ::execl("/usr/bin/python3", "python3", PYMODBUS_SERVER, device.c_str(), nullptr);
      ::_exit(127);
    }
    ::close(pipe[1]);
  }

  ~PymodbusServer() {
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
    ::close(output_);
  }

  PymodbusServer(const PymodbusServer&) = delete;
  PymodbusServer& operator=(const PymodbusServer&) = delete;

  /// Waits until the server listens; false if it never does.
  [[nodiscard]] bool isReady() const {
    std::array<char, 16> line{};
    return ::read(output_, line.data(), line.size()) > 0;
  }

 private:
  ::pid_t child_ = -1;
  int output_ = -1;
};

class ModbusPeer : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(server_.isReady());
    std::int16_t comPort = 3;
    std::int32_t rate = 19200;
    ASSERT_TRUE(driver_.ConnectWithSerialDevice(comPort, rate)) << driver_.connectFailure();
  }

  Cable cable_;
  PymodbusServer server_{cable_.device(1)};
  NamedPorts ports_{{{3, cable_.device(0)}}};
  ModbusDriver driver_{ports_, {.answer = 20s, .pauses = 20s}};
};

TEST_F(ModbusPeer, RegistersAreRead) {
  EXPECT_THAT(driver_.ReadInputRegisters(192, 4, 1, 2), ElementsAre(4 * 257));
  EXPECT_THAT(driver_.ReadInputRegisters(192, 5, 4, 2),
              ElementsAre(5 * 257, 6 * 257, 7 * 257, 8 * 257));
  const DeviceWords all = driver_.ReadInputRegisters(192, 0, 100, 2);
  ASSERT_EQ(all.size(), 100U);
  EXPECT_EQ(all[99], 99 * 257);
}

TEST_F(ModbusPeer, IdentificationIsRead) {
  std::uint8_t address = 192;
  EXPECT_THAT(driver_.ReadDeviceIdentifier(address), ElementsAre(42, 5, 16, -2));
}

TEST_F(ModbusPeer, ARegisterThatIsNotThereIsAnException) {
  EXPECT_THAT(errorOf([this] { (void)driver_.ReadInputRegisters(192, 100, 1, 2); }),
              EndsWith("input register 100 at address 192: exception 2: illegal data address"));
}

TEST_F(ModbusPeer, EachReadGetsItsOwnAnswer) {
  for (std::int32_t address = 0; address < 100; ++address) {
    EXPECT_THAT(driver_.ReadInputRegisters(192, address, 1, 2),
                ElementsAre(static_cast<std::int16_t>(address * 257)));
  }
}

}  // namespace
}  // namespace tessara::testing
