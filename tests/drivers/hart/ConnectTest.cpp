#include <chrono>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <termios.h>

#include "drivers/ReadError.h"
#include "drivers/hart/HartBench.h"
#include "serial/OtherProcess.h"
#include "serial/PortError.h"
#include "serial/PseudoTerminal.h"
#include "serial/SerialLine.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::map<std::uint16_t, HartBytes> answersByCommand{{20, bytesOf("41")}};

std::string refusal(HartDriver& driver, std::int16_t comPort) {
  std::int32_t rate = 1200;
  EXPECT_FALSE(driver.ConnectWithSerialDevice(comPort, rate));
  return driver.connectFailure();
}

TEST(HartConnect, OpensThePortAndLeavesItsArgumentsAlone) {
  HartBench bench(answersByCommand);
  std::int16_t comPort = 3;
  std::int32_t rate = 19200;
  EXPECT_TRUE(bench.driver.ConnectWithSerialDevice(comPort, rate));
  EXPECT_EQ(comPort, 3);
  EXPECT_EQ(rate, 19200);
  EXPECT_EQ(bench.driver.connectFailure(), "");
}

TEST(HartConnect, IsMadeForTheObjectOfThatName) {
  HartBench bench(answersByCommand);
  EXPECT_EQ(bench.driver.name(), u"HartCommObject");
  bench.driver.InitHartObject();
  bench.driver.InitHartObject();
  EXPECT_TRUE(bench.connect());
}

TEST(HartConnect, Sets1200BitsASecondWhateverRateIsPassed) {
  HartBench bench(answersByCommand);
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

TEST(HartConnect, GoesOnWithoutParityOnAPortThatRefusesIt) {
  HartBench bench(answersByCommand);
  for (int round = 0; round < 3; ++round) {
    ASSERT_TRUE(bench.connect()) << bench.driver.connectFailure();
    EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 0x41));
    bench.driver.CloseSerialConnection();
  }
}

TEST(HartConnect, HandsThePortBackAsItWas) {
  HartBench bench(answersByCommand);
  const PortSettings before = bench.slave.settings();
  ASSERT_TRUE(bench.connect());
  EXPECT_NE(bench.slave.settings(), before);
  bench.driver.CloseSerialConnection();
  EXPECT_EQ(bench.slave.settings(), before);
}

TEST(HartConnect, StartsOverOnAnOpenConnection) {
  HartBench bench(answersByCommand);
  ASSERT_TRUE(bench.connect());
  ASSERT_TRUE(bench.connect());
  EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 0x41));
}

TEST(HartConnect, ToAnUnknownPortSaysThatItIsNotThere) {
  HartBench bench(answersByCommand);
  EXPECT_EQ(refusal(bench.driver, 7), "COM7 is not there");
}

TEST(HartConnect, ToAnAbsentDeviceSaysThatItIsNotThere) {
  const NamedPorts ports({{3, "/dev/no-such-port"}});
  HartDriver driver(ports);
  EXPECT_EQ(refusal(driver, 3), "COM3 (/dev/no-such-port) is not there");
}

TEST(HartConnect, ToAPortInUseSaysSo) {
  HartBench bench(answersByCommand);
  const SerialLine other(bench.slave.device());
  EXPECT_EQ(refusal(bench.driver, 3), bench.port() + " is in use by another program");
}

TEST(HartConnect, HoldsThePortForItselfUntilItIsClosed) {
  HartBench bench(answersByCommand);
  ASSERT_TRUE(bench.connect());
  EXPECT_THROW(SerialLine other(bench.slave.device()), PortError);
  bench.driver.CloseSerialConnection();
  EXPECT_NO_THROW(SerialLine other(bench.slave.device()));
}

TEST(HartConnect, ToAPortThatMayNotBeOpenedSaysSo) {
  const PseudoTerminal port;
  const NamedPorts ports({{3, port.device()}});
  HartDriver driver(ports);
  ASSERT_EQ(::chmod(port.device().c_str(), 0), 0);
  const std::string expected = "COM3 (" + port.device() + ") cannot be opened: no permission";
  EXPECT_EQ(inUnprivilegedProcess([&] { return refusal(driver, 3) == expected ? 0 : 1; }), 0);
}

TEST(HartConnect, ToADeviceThatIsNotASerialPortSaysSo) {
  const NamedPorts ports({{3, "/dev/null"}});
  HartDriver driver(ports);
  EXPECT_EQ(refusal(driver, 3), "COM3 (/dev/null) is not a serial port");
}

/// Control lines as a port with a modem has them, with a record of what is done to them.
class RecordedLines final : public ControlLines {
 public:
  bool setRts(bool isOn) override { return record(isOn ? "+RTS" : "-RTS"); }
  bool setDtr(bool isOn) override { return record(isOn ? "+DTR" : "-DTR"); }
  [[nodiscard]] bool hasCarrier() const override { return carrierLooks > 0 && carrierLooks-- > 0; }

  std::vector<std::string> calls;
  std::vector<std::chrono::steady_clock::time_point> times;
  mutable int carrierLooks = 0;  ///< how many more times the carrier is there

 private:
  bool record(const char* call) {
    calls.emplace_back(call);
    times.push_back(std::chrono::steady_clock::now());
    return true;
  }
};

/// One identification with these control lines.
DeviceWords identificationWith(ControlLines& lines, HartCarrier carrier = HartCarrier::Rts,
                               const HartTimings& timings = patient()) {
  HartBench bench(answersByCommand);
  HartDriver driver(bench.ports, {.timings = timings, .carrier = carrier, .controlLines = &lines});
  std::int16_t comPort = 3;
  std::int32_t rate = 1200;
  std::uint8_t address = 0;
  EXPECT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
  return driver.ReadDeviceIdentifier(address);
}

std::vector<std::string> callsWith(HartCarrier carrier) {
  RecordedLines lines;
  identificationWith(lines, carrier);
  return lines.calls;
}

TEST(HartModem, SendsWhileRtsIsSet) {
  EXPECT_THAT(callsWith(HartCarrier::Rts), ElementsAre("-RTS", "+RTS", "-RTS"));
}

TEST(HartModem, SetsDtrOppositeToRtsIfOrdered) {
  EXPECT_THAT(callsWith(HartCarrier::RtsAndDtr),
              ElementsAre("-RTS", "+DTR", "-DTR", "+RTS", "-RTS", "+DTR"));
}

TEST(HartModem, SwitchesItselfIfOrdered) {
  EXPECT_THAT(callsWith(HartCarrier::Modem), IsEmpty());
}

TEST(HartModem, SendsUntilTwoCharactersAfterTheLast) {
  RecordedLines lines;
  HartTimings timings = patient();
  timings.character = 2ms;
  identificationWith(lines, HartCarrier::Rts, timings);
  ASSERT_EQ(lines.times.size(), 3U);
  EXPECT_GE(lines.times[2] - lines.times[1], 2ms * (25 + 2));
}

TEST(HartModem, ReceivesAgainAfterThePortHasGone) {
  HartBench bench(answersByCommand);
  RecordedLines lines;
  HartDriver driver(bench.ports, {.timings = patient(), .controlLines = &lines});
  std::int16_t comPort = 3;
  std::int32_t rate = 1200;
  std::uint8_t address = 0;
  ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
  bench.slave.unplug();
  EXPECT_THROW(driver.ReadDeviceIdentifier(address), ReadError);
  EXPECT_EQ(lines.calls.back(), "-RTS");
}

TEST(HartModem, WaitsUntilTheCarrierOfAnotherHasGone) {
  RecordedLines lines;
  lines.carrierLooks = 5;
  HartTimings timings = patient();
  timings.linkQuiet = 1s;
  identificationWith(lines, HartCarrier::Rts, timings);
  EXPECT_EQ(lines.carrierLooks, 0);
}

TEST(HartModem, IgnoresACarrierThatNeverGoes) {
  RecordedLines lines;
  lines.carrierLooks = 1'000'000;
  EXPECT_THAT(identificationWith(lines), ElementsAre(0xB0, 7, 0xE2, 1));
}

}  // namespace
}  // namespace tessara::testing
