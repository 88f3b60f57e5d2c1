#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>

#include "drivers/OtherProcess.h"
#include "drivers/PortLock.h"
#include "drivers/PseudoTerminal.h"
#include "drivers/hart/HartBench.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::map<std::uint16_t, HartBytes> kAnswers{{20, bytesOf("41")}};

std::string refusal(HartDriver& driver, std::int16_t comPort) {
  std::int32_t rate = 1200;
  EXPECT_FALSE(driver.ConnectWithSerialDevice(comPort, rate));
  return driver.connectFailure();
}

TEST(HartConnect, OpensThePortAndLeavesItsArgumentsAlone) {
  HartBench bench(kAnswers);
  std::int16_t comPort = 3;
  std::int32_t rate = 19200;
  EXPECT_TRUE(bench.driver.ConnectWithSerialDevice(comPort, rate));
  EXPECT_EQ(comPort, 3);
  EXPECT_EQ(rate, 19200);
  EXPECT_EQ(bench.driver.connectFailure(), "");
}

TEST(HartConnect, IsMadeForTheObjectOfThatName) {
  HartBench bench(kAnswers);
  EXPECT_EQ(bench.driver.name(), u"HartCommObject");
  bench.driver.InitHartObject();
  bench.driver.InitHartObject();
  EXPECT_TRUE(bench.connect());
}

TEST(HartConnect, Sets1200BitsASecondWhateverRateIsPassed) {
  HartBench bench(kAnswers);
  for (const std::int32_t rate : {19200, 115200, 0, -1}) {
    std::int16_t comPort = 3;
    std::int32_t passed = rate;
    ASSERT_TRUE(bench.driver.ConnectWithSerialDevice(comPort, passed));
    ::termios settings{};
    ASSERT_EQ(::tcgetattr(bench.slave.terminal(), &settings), 0);
    EXPECT_EQ(::cfgetispeed(&settings), static_cast<::speed_t>(B1200));
    EXPECT_EQ(::cfgetospeed(&settings), static_cast<::speed_t>(B1200));
    EXPECT_EQ(settings.c_cflag & CSIZE, static_cast<::tcflag_t>(CS8));
    EXPECT_EQ(settings.c_cflag & (CSTOPB | CRTSCTS), 0U);
    EXPECT_EQ(settings.c_iflag & (IXON | IXOFF | ICRNL | ISTRIP | PARMRK | INPCK), 0U);
    EXPECT_EQ(settings.c_lflag & (ICANON | ECHO | ISIG), 0U);
    EXPECT_EQ(settings.c_oflag & OPOST, 0U);
  }
}

TEST(HartConnect, GoesOnWithoutParityOnAPortThatKnowsNone) {
  HartBench bench(kAnswers);
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(bench.connect()) << bench.driver.connectFailure();
    EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 0x41));
    bench.driver.CloseSerialConnection();
  }
}

TEST(HartConnect, HandsThePortBackAsItWas) {
  HartBench bench(kAnswers);
  const PortSettings before = bench.slave.settings();
  ASSERT_TRUE(bench.connect());
  EXPECT_NE(bench.slave.settings(), before);
  bench.driver.CloseSerialConnection();
  EXPECT_EQ(bench.slave.settings(), before);
}

TEST(HartConnect, StartsOverOnAnOpenConnection) {
  HartBench bench(kAnswers);
  ASSERT_TRUE(bench.connect());
  ASSERT_TRUE(bench.connect());
  EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 0x41));
}

TEST(HartConnect, ToAnUnknownPortSaysThatItIsNotThere) {
  HartBench bench(kAnswers);
  EXPECT_EQ(refusal(bench.driver, 7), "COM7 is not there");
}

TEST(HartConnect, ToAnAbsentDeviceSaysThatItIsNotThere) {
  const NamedPorts ports({{3, "/dev/no-such-port"}});
  HartDriver driver(ports);
  EXPECT_EQ(refusal(driver, 3), "COM3 (/dev/no-such-port) is not there");
}

TEST(HartConnect, ToAPortInUseSaysSo) {
  HartBench bench(kAnswers);
  const PortLock other(bench.slave.device());
  EXPECT_EQ(refusal(bench.driver, 3), bench.port() + " is in use by another program");
}

TEST(HartConnect, HoldsThePortForItselfUntilItIsClosed) {
  HartBench bench(kAnswers);
  ASSERT_TRUE(bench.connect());
  EXPECT_THROW(PortLock other(bench.slave.device()), PortError);
  bench.driver.CloseSerialConnection();
  EXPECT_NO_THROW(PortLock other(bench.slave.device()));
}

TEST(HartConnect, ToAPortThatMayNotBeOpenedSaysSo) {
  const PseudoTerminal port;
  const NamedPorts ports({{3, port.device()}});
  HartDriver driver(ports);
  ASSERT_EQ(::chmod(port.device().c_str(), 0), 0);
  const std::string expected = "COM3 (" + port.device() + ") cannot be opened: no permission";
  EXPECT_EQ(inUnprivilegedProcess([&] { return refusal(driver, 3) == expected ? 0 : 1; }), 0);
}

TEST(HartConnect, ToWhatIsNoSerialPortSaysSo) {
  const NamedPorts ports({{3, "/dev/null"}});
  HartDriver driver(ports);
  EXPECT_EQ(refusal(driver, 3), "COM3 (/dev/null) is no serial port");
}

/// Control lines as a port with a modem has them, with a record of what is done to them.
struct RecordedLines {
  std::vector<std::string> calls;
  int state = TIOCM_RTS | TIOCM_DTR;
  int carrierLooks = 0;  ///< how often the carrier is still there

  int operator()(int /*descriptor*/, unsigned long request, int& lines) {
    switch (request) {
      case TIOCMBIS:
        calls.emplace_back((lines & TIOCM_RTS) != 0 ? "+RTS" : "+DTR");
        break;
      case TIOCMBIC:
        calls.emplace_back((lines & TIOCM_RTS) != 0 ? "-RTS" : "-DTR");
        break;
      default:
        lines = carrierLooks > 0 ? TIOCM_CAR : 0;
        carrierLooks -= carrierLooks > 0 ? 1 : 0;
    }
    return 0;
  }
};

/// One identification with the control lines in that mode.
std::vector<std::string> callsWith(HartCarrier carrier) {
  RecordedLines lines;
  HartBench bench(kAnswers);
  HartOptions options{.timings = patient(), .carrier = carrier, .modemLineCall = std::ref(lines)};
  HartDriver driver(bench.ports, options);
  std::int16_t comPort = 3;
  std::int32_t rate = 1200;
  std::uint8_t address = 0;
  EXPECT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
  driver.ReadDeviceIdentifier(address);
  return lines.calls;
}

TEST(HartModem, SendsWhileRtsIsSet) {
  EXPECT_THAT(callsWith(HartCarrier::Rts), ElementsAre("-RTS", "+RTS", "-RTS"));
}

TEST(HartModem, HasDtrOppositeToRtsIfOrdered) {
  EXPECT_THAT(callsWith(HartCarrier::RtsAndDtr),
              ElementsAre("-RTS", "+DTR", "-DTR", "+RTS", "-RTS", "+DTR"));
}

TEST(HartModem, SwitchesItselfIfOrdered) {
  EXPECT_THAT(callsWith(HartCarrier::Modem), IsEmpty());
}

TEST(HartModem, SendsUntilTwoCharactersBehindTheLast) {
  HartBench bench(kAnswers);
  std::vector<std::chrono::steady_clock::time_point> times;
  const ModemLineCall record = [&times](int, unsigned long request, int& lines) {
    if (request == TIOCMBIS || request == TIOCMBIC) {
      times.push_back(std::chrono::steady_clock::now());
    } else {
      lines = 0;
    }
    return 0;
  };
  HartTimings timings = patient();
  timings.character = 2ms;
  HartDriver driver(bench.ports, {.timings = timings, .modemLineCall = record});
  std::int16_t comPort = 3;
  std::int32_t rate = 1200;
  std::uint8_t address = 0;
  ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
  driver.ReadDeviceIdentifier(address);
  ASSERT_EQ(times.size(), 3U);
  EXPECT_GE(times[2] - times[1], 2ms * (25 + 2));
}

TEST(HartModem, WaitsUntilTheCarrierOfAnotherHasGone) {
  HartBench bench(kAnswers);
  RecordedLines lines;
  lines.carrierLooks = 5;
  HartTimings timings = patient();
  timings.linkQuiet = 1s;
  HartDriver driver(bench.ports, {.timings = timings, .modemLineCall = std::ref(lines)});
  std::int16_t comPort = 3;
  std::int32_t rate = 1200;
  std::uint8_t address = 0;
  ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
  driver.ReadDeviceIdentifier(address);
  EXPECT_EQ(lines.carrierLooks, 0);
}

TEST(HartModem, TakesACarrierThatNeverGoesForNone) {
  HartBench bench(kAnswers);
  RecordedLines lines;
  lines.carrierLooks = 1'000'000;
  HartDriver driver(bench.ports, {.timings = patient(), .modemLineCall = std::ref(lines)});
  std::int16_t comPort = 3;
  std::int32_t rate = 1200;
  std::uint8_t address = 0;
  ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
  EXPECT_THAT(driver.ReadDeviceIdentifier(address), ElementsAre(0xB0, 7, 0xE2, 1));
}

}  // namespace
}  // namespace tessara::testing
