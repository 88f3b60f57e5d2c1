#include <algorithm>

#include "MockedMachine.h"
#include "linux/ports/SerialDevice.h"

namespace tessara {
namespace {

using testing::Adapter;
using testing::MockedMachine;

/// What both kinds of discovery must find on the same machine.
class Discovery : public ::testing::TestWithParam<FoundDevices (*)()> {
 protected:
  static std::vector<SerialDevice> found() {
    FoundDevices devices = GetParam()();
    EXPECT_TRUE(devices.has_value());
    std::vector<SerialDevice> sorted = devices.value_or(std::vector<SerialDevice>());
    std::sort(sorted.begin(), sorted.end(),
              [](const auto& left, const auto& right) { return left.name < right.name; });
    return sorted;
  }

  MockedMachine machine;
};

INSTANTIATE_TEST_SUITE_P(All, Discovery,
                         ::testing::Values(&udevDevices, [] { return sysfsDevices(); }),
                         [](const auto& run) { return run.index == 0 ? "udev" : "sysfs"; });

TEST_P(Discovery, ConsolesAreNoPorts) {
  machine.addVirtualTerminal("tty1");
  machine.addVirtualTerminal("ptmx");
  EXPECT_TRUE(found().empty());
}

TEST_P(Discovery, TellsOfAnAdapterOfUsbserialWhatItSaysOfItself) {
  machine.plugIn({.serial = "0001", .socket = "2.1"});
  const std::vector<SerialDevice> expected{{"ttyUSB0", "/dev/ttyUSB0", "cp210x", std::nullopt,
                                            UsbIdentity{0x10C4, 0xEA60, "0001", 0},
                                            "/devices/pci0000:00/0000:00:14.0/usb1/1-2.1", "0"}};
  EXPECT_EQ(found(), expected);
}

TEST_P(Discovery, TellsOfAModemWhatItSaysOfItself) {
  machine.plugIn({.tty = "ttyACM3",
                  .driver = "cdc_acm",
                  .vendor = "09d8",
                  .product = "0420",
                  .serial = "A1",
                  .interfaceNumber = "02"});
  const std::vector<SerialDevice> expected{{"ttyACM3", "/dev/ttyACM3", "cdc_acm", std::nullopt,
                                            UsbIdentity{0x09D8, 0x0420, "A1", 2},
                                            "/devices/pci0000:00/0000:00:14.0/usb1/1-2", ""}};
  EXPECT_EQ(found(), expected);
}

TEST_P(Discovery, TellsTheTypeOfAUart) {
  machine.addUart("ttyS0", "serial", 4);
  machine.addUart("ttyS1", "serial8250", 0);
  const std::vector<SerialDevice> expected{{"ttyS0", "/dev/ttyS0", "serial", "4"},
                                           {"ttyS1", "/dev/ttyS1", "serial8250", "0"}};
  EXPECT_EQ(found(), expected);
}

TEST_P(Discovery, ABluetoothLinkIsAPortWithoutADevice) {
  machine.addVirtualTerminal("rfcomm0");
  const std::vector<SerialDevice> expected{{"rfcomm0", "/dev/rfcomm0", "rfcomm"}};
  EXPECT_EQ(found(), expected);
}

TEST_P(Discovery, SeesWhatCameAndWentBetweenTwoLooks) {
  const Adapter adapter{.serial = "0001"};
  machine.plugIn(adapter);
  EXPECT_EQ(found().size(), 1U);
  machine.pullOut(adapter);
  EXPECT_TRUE(found().empty());
  machine.plugIn({.tty = "ttyUSB4", .driver = "ftdi_sio", .socket = "3"});
  EXPECT_EQ(found().front().driver, "ftdi_sio");
}

TEST_P(Discovery, PortsOfOneInterfaceAreNumbered) {
  const Adapter adapter{};
  machine.plugIn(adapter);
  machine.setPortOnInterface(adapter, "3");
  EXPECT_EQ(found().front().usbPort, "3");
}

TEST(DiscoveryWithoutTerminals, NoSourceIsAvailable) {
  const std::unique_ptr<UMockdevTestbed, void (*)(gpointer)> empty(umockdev_testbed_new(),
                                                                   g_object_unref);
  EXPECT_FALSE(udevDevices().has_value());
  EXPECT_FALSE(sysfsDevices().has_value());
}

}  // namespace
}  // namespace tessara
