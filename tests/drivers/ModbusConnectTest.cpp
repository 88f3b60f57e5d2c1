#include <chrono>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/select.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include "drivers/ModbusLine.h"
#include "serial/OtherProcess.h"
#include "serial/PseudoTerminal.h"
#include "serial/SerialLine.h"
#include "serial/linux/TerminalSettings.h"
#include "simulator/LineRate.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

constexpr ModbusTimings patientTimings{.answer = 20s, .pauses = 20s};

ScriptedSlave::Script answering() {
  return always(registersAnswer(192, {1}));
}

/// Expects a connect to return false soon, and returns the reason.
std::string refusal(ModbusDriver& driver, std::int16_t comPort, std::int32_t rate = 19200) {
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_FALSE(driver.ConnectWithSerialDevice(comPort, rate));
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 10s);
  return driver.connectFailure();
}

TEST(ModbusConnect, OpensThePortAndLeavesItsArgumentsAlone) {
  ModbusLine line(answering(), patientTimings);
  std::int16_t comPort = 3;
  std::int32_t rate = 19200;
  EXPECT_TRUE(line.driver.ConnectWithSerialDevice(comPort, rate));
  EXPECT_EQ(comPort, 3);
  EXPECT_EQ(rate, 19200);
  EXPECT_EQ(line.driver.connectFailure(), "");
}

TEST(ModbusConnect, IsMadeForTheObjectOfThatName) {
  ModbusLine line(answering());
  EXPECT_EQ(line.driver.name(), u"ModbusCommObject");
  line.driver.InitModbusObject();
  line.driver.InitModbusObject();
  EXPECT_TRUE(line.connect());
}

TEST(ModbusConnect, SetsRawBytesOf8BitsWithOneStopBitAtTheRate) {
  ModbusLine line(answering());
  for (const auto& [rate, speed] : std::map<std::int32_t, ::speed_t>{{1200, B1200},
                                                                     {9600, B9600},
                                                                     {19200, B19200},
                                                                     {57600, B57600},
                                                                     {115200, B115200},
                                                                     {921600, B921600}}) {
    ASSERT_TRUE(line.connect(rate));
    ::termios settings{};
    ASSERT_EQ(::tcgetattr(line.slave.terminal(), &settings), 0);
    EXPECT_EQ(::cfgetispeed(&settings), speed);
    EXPECT_EQ(::cfgetospeed(&settings), speed);
    EXPECT_EQ(settings.c_cflag & CSIZE, static_cast<::tcflag_t>(CS8));
    EXPECT_EQ(settings.c_cflag & (CSTOPB | PARODD | CRTSCTS), 0U);
    EXPECT_EQ(settings.c_iflag & (IXON | IXOFF | ICRNL | ISTRIP), 0U);
    EXPECT_EQ(settings.c_lflag & (ICANON | ECHO | ISIG), 0U);
    EXPECT_EQ(settings.c_oflag & OPOST, 0U);
  }
}

TEST(ModbusConnect, WorksOnAPortWithTheSettingsOfAClientThatCrashed) {
  ModbusLine line(answering(), patientTimings);
  applySettings(line.slave.terminal(), {.rate = 115200, .parity = Parity::Even});
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(4, 1), ElementsAre(1));
}

TEST(ModbusConnect, ToAnUnknownPortSaysThatItIsNotThere) {
  ModbusLine line(answering());
  EXPECT_EQ(refusal(line.driver, 7), "COM7 is not there");
  EXPECT_EQ(refusal(line.driver, -1), "COM-1 is not there");
}

TEST(ModbusConnect, ToAnAbsentDeviceSaysThatItIsNotThere) {
  const NamedPorts ports({{3, "/dev/no-such-port"}});
  ModbusDriver driver(ports);
  EXPECT_EQ(refusal(driver, 3), "COM3 (/dev/no-such-port) is not there");
}

TEST(ModbusConnect, ToAPortInUseSaysSo) {
  ModbusLine line(answering());
  const SerialLine other(line.slave.device());
  EXPECT_EQ(refusal(line.driver, 3), line.port() + " is in use by another program");
}

TEST(ModbusConnect, ToAPortThatMayNotBeOpenedSaysSo) {
  const PseudoTerminal port;
  const NamedPorts ports({{3, port.device()}});
  ModbusDriver driver(ports);
  ASSERT_EQ(::chmod(port.device().c_str(), 0), 0);
  const std::string expected = "COM3 (" + port.device() + ") cannot be opened: no permission";
  EXPECT_EQ(inUnprivilegedProcess([&] { return refusal(driver, 3) == expected ? 0 : 1; }), 0);
}

TEST(ModbusConnect, ToADeviceThatIsNotASerialPortSaysSo) {
  const NamedPorts ports({{3, "/dev/null"}});
  ModbusDriver driver(ports);
  EXPECT_EQ(refusal(driver, 3), "COM3 (/dev/null) is not a serial port");
}

TEST(ModbusConnect, AtEachRateOfThePanelSetsThatRate) {
  ModbusLine line(answering());
  for (const std::uint32_t rate :
       {2400U, 4800U, 9600U, 14400U, 19200U, 28800U, 38400U, 56000U, 57600U, 76800U, 115200U}) {
    ASSERT_TRUE(line.connect(static_cast<std::int32_t>(rate))) << rate;
    EXPECT_EQ(lineRateOf(line.slave.terminal()), rate);
  }
}

TEST(ModbusConnect, ReadsAtARateWithoutAConstant) {
  ModbusLine line(answering(), patientTimings);
  ASSERT_TRUE(line.connect(14400));
  EXPECT_THAT(line.registers(4, 1), ElementsAre(1));
}

TEST(ModbusConnect, LeavesNothingOfAnOddRateToTheNextOne) {
  ModbusLine line(answering());
  applySettings(line.slave.terminal(), {.rate = 14400});
  ASSERT_TRUE(line.connect(9600));
  ::termios settings{};
  ASSERT_EQ(::tcgetattr(line.slave.terminal(), &settings), 0);
  EXPECT_EQ(::cfgetospeed(&settings), static_cast<::speed_t>(B9600));
  EXPECT_EQ(settings.c_cflag & CIBAUD, 0U);
}

TEST(ModbusConnect, AtARateBelow300SaysSo) {
  ModbusLine line(answering());
  for (const std::int32_t rate : {299, 1, 0, -9600}) {
    EXPECT_EQ(refusal(line.driver, 3, rate), line.port() + " cannot be opened at " +
                                                 std::to_string(rate) +
                                                 " bit/s: the lowest rate is 300 bit/s");
  }
  EXPECT_TRUE(line.connect(300));
}

TEST(ModbusConnect, ToAPortMarkedByAnotherProgramSaysThatItIsInUse) {
  ModbusLine line(answering());
  ASSERT_EQ(::ioctl(line.slave.terminal(), TIOCEXCL), 0);
  EXPECT_EQ(refusal(line.driver, 3), line.port() + " is in use by another program");
}

TEST(ModbusConnect, WithTooManyFilesOpenSaysSo) {
  ModbusLine line(answering());
  ::rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
  limit.rlim_cur = FD_SETSIZE + 100;
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
  while (::dup(0) < FD_SETSIZE) {
  }
  EXPECT_EQ(refusal(line.driver, 3), line.port() + " cannot be opened: Too many open files");
}

TEST(ModbusConnect, NeverThrowsEvenIfThePortsCannotBeLookedUp) {
  class BrokenPorts final : public PortDirectory {
    [[nodiscard]] std::optional<std::string> deviceOf(std::int16_t /*comPort*/) const override {
      throw std::runtime_error("the list of ports is damaged");
    }
  };
  const BrokenPorts ports;
  ModbusDriver driver(ports);
  EXPECT_EQ(refusal(driver, 3), "COM3 cannot be opened: the list of ports is damaged");
}

TEST(ModbusConnect, ThatSucceedsForgetsTheEarlierFailure) {
  ModbusLine line(answering());
  EXPECT_NE(refusal(line.driver, 7), "");
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(line.driver.connectFailure(), "");
}

TEST(ModbusConnect, OnAnOpenConnectionStartsOver) {
  ModbusLine line(answering(), patientTimings);
  ASSERT_TRUE(line.connect(19200));
  ASSERT_TRUE(line.connect(115200));
  EXPECT_THAT(line.registers(4, 1), ElementsAre(1));
}

TEST(ModbusConnect, ToAnotherPortReleasesTheFirstOne) {
  ModbusLine line(answering(), patientTimings);
  const ScriptedSlave other(always(registersAnswer(192, {2})));
  line.ports.put(4, other.device());
  ASSERT_TRUE(line.connect());
  std::int16_t comPort = 4;
  std::int32_t rate = 19200;
  ASSERT_TRUE(line.driver.ConnectWithSerialDevice(comPort, rate));
  EXPECT_THAT(line.registers(4, 1), ElementsAre(2));
  EXPECT_NO_THROW(SerialLine(line.slave.device()));
}

TEST(ModbusConnect, ThatFailsLeavesNoConnectionOpen) {
  ModbusLine line(answering());
  ASSERT_TRUE(line.connect());
  EXPECT_NE(refusal(line.driver, 7), "");
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            "COM7, input register 4 at address 192: no connection is open");
  EXPECT_NO_THROW(SerialLine(line.slave.device()));
}

TEST(ModbusConnect, WhileOpenKeepsOthersOut) {
  ModbusLine line(answering());
  ModbusDriver second(line.ports);
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(refusal(second, 3), line.port() + " is in use by another program");
  line.driver.CloseSerialConnection();
  std::int16_t comPort = 3;
  std::int32_t rate = 19200;
  EXPECT_TRUE(second.ConnectWithSerialDevice(comPort, rate));
}

TEST(ModbusClose, IsHarmlessWithoutAConnection) {
  ModbusLine line(answering());
  EXPECT_NO_THROW(line.driver.CloseSerialConnection());
  ASSERT_TRUE(line.connect());
  EXPECT_NO_THROW(line.driver.CloseSerialConnection());
  EXPECT_NO_THROW(line.driver.CloseSerialConnection());
}

TEST(ModbusClose, HandsThePortBackAsItWas) {
  ModbusLine line(answering(), patientTimings);
  const PortSettings before = line.slave.settings();
  ASSERT_TRUE(line.connect());
  line.registers(4, 1);
  line.driver.CloseSerialConnection();
  EXPECT_EQ(line.slave.settings(), before);
}

TEST(ModbusClose, DoesNotWaitForALineThatIsStopped) {
  ModbusLine line(answering(), {.answer = 50ms});
  ASSERT_TRUE(line.connect());
  ASSERT_EQ(::tcflow(line.slave.terminal(), TCOOFF), 0);
  EXPECT_NE(errorOf([&] { line.registers(4, 1); }), "");
  const auto begun = std::chrono::steady_clock::now();
  line.driver.CloseSerialConnection();
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 100ms);
}

TEST(ModbusClose, IsPartOfTheShutDown) {
  ModbusLine line(answering());
  ASSERT_TRUE(line.connect());
  line.driver.ShutDown();
  EXPECT_NO_THROW(SerialLine(line.slave.device()));
}

TEST(ModbusClose, HappensAtTheEndOfTheObject) {
  const ScriptedSlave slave(answering());
  const NamedPorts ports({{3, slave.device()}});
  {
    ModbusDriver driver(ports);
    std::int16_t comPort = 3;
    std::int32_t rate = 19200;
    ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
  }
  EXPECT_NO_THROW(SerialLine(slave.device()));
}

TEST(ModbusClose, AfterConnectsAndReadsNothingIsLeftOpen) {
  ModbusLine line(answering(), patientTimings);
  const int before = ::dup(0);
  ::close(before);
  for (int i = 0; i < 50; ++i) {
    ASSERT_TRUE(line.connect());
    line.registers(4, 1);
    line.driver.CloseSerialConnection();
    EXPECT_NE(refusal(line.driver, 7), "");
  }
  const int after = ::dup(0);
  ::close(after);
  EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace tessara::testing
