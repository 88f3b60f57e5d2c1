#include "Fakes.h"
#include "MockedMachine.h"
#include "linux/ports/SerialPorts.h"

namespace tessara {
namespace {

using testing::Adapter;
using testing::cp210x;
using testing::twn4;

class SerialPortsTest : public ::testing::Test {
 protected:
  /// "COM3 \Device\Silabser0 /dev/ttyUSB0" for each port of a program that has just started.
  std::vector<std::string> ports() {
    std::vector<std::string> lines;
    const SerialPorts source(memory, claimed);
    for (const KnownPort& port : source.ports()) {
      lines.push_back("COM" + std::to_string(port.comPort) + ' ' + port.deviceName + ' ' +
                      port.deviceNode);
    }
    return lines;
  }

  using Lines = std::vector<std::string>;

  testing::MockedMachine machine;
  testing::FakePortNumbers memory;
  testing::FakePorts claimed;
};

const Adapter twin{.tty = "ttyUSB1", .serial = "0002", .socket = "2"};
const Adapter ftdi{
    .tty = "ttyUSB2", .driver = "ftdi_sio", .vendor = "0403", .product = "6001", .socket = "3"};
const Adapter ch341{
    .tty = "ttyUSB10", .driver = "ch341-uart", .vendor = "1a86", .product = "7523", .socket = "5"};

TEST_F(SerialPortsTest, EachClassOfAdapterHasItsName) {
  for (const Adapter& adapter : {ch341, twn4, ftdi, cp210x}) {
    machine.plugIn(adapter);
  }
  machine.addUart("ttyS0", "port", 4);
  EXPECT_EQ(ports(),
            (Lines{R"(COM1 \Device\Serial0 /dev/ttyS0)", R"(COM3 \Device\USBSER000 /dev/ttyACM0)",
                   R"(COM4 \Device\Silabser0 /dev/ttyUSB0)", R"(COM5 \Device\VCP2 /dev/ttyUSB2)",
                   R"(COM6 \Device\ch34110 /dev/ttyUSB10)"}));
}

TEST_F(SerialPortsTest, ReportsDriverAndUsbDevice) {
  machine.plugIn(twn4);
  const SerialPorts source(memory, claimed);
  EXPECT_EQ(source.ports(),
            (std::vector<KnownPort>{{3, R"(\Device\USBSER000)", "/dev/ttyACM0", "cdc_acm",
                                     UsbIdentity{0x09D8, 0x0420, "T1", 0}}}));
}

TEST_F(SerialPortsTest, TwoOfAKindAreDistinguished) {
  machine.plugIn(cp210x);
  machine.plugIn(twin);
  const Lines both{R"(COM3 \Device\Silabser0 /dev/ttyUSB0)",
                   R"(COM4 \Device\Silabser1 /dev/ttyUSB1)"};
  EXPECT_EQ(ports(), both);
  EXPECT_EQ(ports(), both);
}

TEST_F(SerialPortsTest, NumbersStayWhenTheKernelSwapsTheNamesOfTheAdapters) {
  machine.plugIn(cp210x);
  machine.plugIn(twin);
  (void)ports();
  machine.pullOut(cp210x);
  machine.pullOut(twin);
  Adapter first = cp210x;
  Adapter second = twin;
  std::swap(first.tty, second.tty);
  machine.plugIn(second);
  machine.plugIn(first);
  EXPECT_EQ(ports(), (Lines{R"(COM3 \Device\Silabser1 /dev/ttyUSB1)",
                            R"(COM4 \Device\Silabser0 /dev/ttyUSB0)"}));
}

TEST_F(SerialPortsTest, ANumberStaysWhenTheAdapterMovesToAnotherSocket) {
  machine.plugIn(twin);
  machine.plugIn(cp210x);
  (void)ports();
  machine.pullOut(cp210x);
  EXPECT_EQ(ports(), Lines{R"(COM4 \Device\Silabser1 /dev/ttyUSB1)"});
  Adapter moved = cp210x;
  moved.socket = "7.3";
  moved.tty = "ttyUSB5";
  machine.plugIn(moved);
  EXPECT_EQ(ports(), (Lines{R"(COM3 \Device\Silabser5 /dev/ttyUSB5)",
                            R"(COM4 \Device\Silabser1 /dev/ttyUSB1)"}));
}

TEST_F(SerialPortsTest, AnAdapterPluggedInBetweenTwoLooksIsSeenByTheSameObject) {
  const SerialPorts source(memory, claimed);
  EXPECT_TRUE(source.ports().empty());
  machine.plugIn(cp210x);
  EXPECT_EQ(source.ports().size(), 1U);
  machine.pullOut(cp210x);
  EXPECT_TRUE(source.ports().empty());
}

TEST_F(SerialPortsTest, ADeviceWhoseNodeIsMissingIsLeftOut) {
  machine.plugIn(cp210x);
  machine.plugIn(twin);
  machine.removeNode(cp210x.tty);
  EXPECT_EQ(ports(), Lines{R"(COM3 \Device\Silabser1 /dev/ttyUSB1)"});
}

TEST_F(SerialPortsTest, PhantomUartsAreLeftOutAndGetNoNumber) {
  machine.addUart("ttyS0", "serial8250", 0);
  machine.addUart("ttyS1", "serial8250", 4);
  machine.addUart("ttyS2", "serial8250", 0);
  EXPECT_EQ(ports(), Lines{R"(COM1 \Device\Serial1 /dev/ttyS1)"});
  EXPECT_EQ(memory.known.size(), 1U);
}

TEST_F(SerialPortsTest, TheTerminalIsAskedWhereTheTreeDoesNotShowPhantoms) {
  machine.addSilentUart("ttyS0", "serial8250", 4);
  machine.addSilentUart("ttyS1", "serial8250", 0);
  EXPECT_EQ(ports(), Lines{R"(COM1 \Device\Serial0 /dev/ttyS0)"});
}

TEST_F(SerialPortsTest, NumbersThatOtherPortsClaimAreNotAssigned) {
  machine.plugIn(cp210x);
  claimed.list = {{3, R"(\Device\Silabser9)", "/dev/pts/5"}};
  EXPECT_EQ(ports(), Lines{R"(COM4 \Device\Silabser0 /dev/ttyUSB0)"});
}

class Layers : public ::testing::Test {
 protected:
  static std::vector<SerialDevice> nullDevice(const std::string& name) {
    return {{.name = name, .node = "/dev/null", .driver = "cp210x"}};
  }

  std::vector<std::string> namesFrom(const std::vector<SerialPorts::Layer>& layers) {
    std::vector<std::string> names;
    for (const KnownPort& port : SerialPorts(memory, claimed, layers).ports()) {
      names.push_back(port.deviceName);
    }
    return names;
  }

  testing::FakePortNumbers memory;
  testing::FakePorts claimed;
};

TEST_F(Layers, TheNextIsUsedIfTheFirstIsNotAvailable) {
  EXPECT_EQ(namesFrom({[] { return FoundDevices(); }, [] { return nullDevice("ttyUSB4"); }}),
            std::vector<std::string>{R"(\Device\Silabser4)"});
}

TEST_F(Layers, TheNextIsNotAskedIfTheFirstFindsNoDevice) {
  EXPECT_TRUE(namesFrom({[] { return FoundDevices(std::in_place); },
                         [] {
                           ADD_FAILURE() << "asked in vain";
                           return FoundDevices();
                         }})
                  .empty());
}

TEST_F(Layers, WithoutAnAvailableLayerThereAreNoPorts) {
  EXPECT_TRUE(namesFrom({[] { return FoundDevices(); }}).empty());
}

TEST_F(Layers, TerminalsAreNumberedInTheOrderOfTheirNumbers) {
  EXPECT_EQ(namesFrom({[] {
              return std::vector<SerialDevice>{nullDevice("ttyUSB10").front(),
                                               nullDevice("ttyUSB9").front(),
                                               nullDevice("ttyACM1").front()};
            }}),
            (std::vector<std::string>{R"(\Device\Silabser1)", R"(\Device\Silabser9)",
                                      R"(\Device\Silabser10)"}));
}

}  // namespace
}  // namespace tessara
