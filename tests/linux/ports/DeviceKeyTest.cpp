#include <gtest/gtest.h>

#include "linux/ports/DeviceKey.h"

namespace tessara {
namespace {

SerialDevice adapter(const std::string& serial, const std::string& usbPath) {
  return {.name = "ttyUSB0",
          .node = "/dev/ttyUSB0",
          .driver = "cp210x",
          .usb = UsbIdentity{0x10C4, 0xEA60, serial, 2},
          .usbPath = usbPath};
}

constexpr const char* socketTwo = "/devices/pci0000:00/0000:00:14.0/usb1/1-2";

TEST(DeviceKey, AnAdapterIsIdentifiedByItsUsbIdentityAndItsSocket) {
  const DeviceKey key = deviceKeyOf(adapter("0001", socketTwo));
  EXPECT_EQ(key.identity, "10c4:ea60:0001:02");
  EXPECT_EQ(key.place, "pci0000:00/0000:00:14.0/usb-2");
}

TEST(DeviceKey, TheBusNumberIsNotPartOfThePlace) {
  EXPECT_EQ(deviceKeyOf(adapter("", "/devices/pci0000:00/0000:00:14.0/usb1/1-2/1-2.4")),
            deviceKeyOf(adapter("", "/devices/pci0000:00/0000:00:14.0/usb3/3-2/3-2.4")));
  EXPECT_EQ(deviceKeyOf(adapter("", "/devices/pci0000:00/0000:00:14.0/usb1/1-2/1-2.4")).place,
            "pci0000:00/0000:00:14.0/usb-2.4");
}

TEST(DeviceKey, AnUnusualPathIsThePlaceAsItStands) {
  EXPECT_EQ(deviceKeyOf(adapter("", "/devices/odd bus/thing")).place, "odd_bus/thing");
  EXPECT_EQ(deviceKeyOf(adapter("", "")).place, "");
}

TEST(DeviceKey, SocketsControllersInterfacesAndPortsDistinguishDevices) {
  const SerialDevice first = adapter("0001", socketTwo);
  SerialDevice other = adapter("0001", "/devices/pci0000:00/0000:00:14.0/usb1/1-3");
  EXPECT_NE(deviceKeyOf(first), deviceKeyOf(other));
  other = adapter("0001", "/devices/pci0000:00/0000:00:1a.0/usb1/1-2");
  EXPECT_NE(deviceKeyOf(first), deviceKeyOf(other));
  other = first;
  other.usb->interfaceNumber = 3;
  EXPECT_NE(deviceKeyOf(first).identity, deviceKeyOf(other).identity);
  other = first;
  other.usbPort = "1";
  EXPECT_EQ(deviceKeyOf(other).identity, "10c4:ea60:0001:02.1");
}

TEST(DeviceKey, TheOnlyPortOfAnInterfaceIsNotNumbered) {
  SerialDevice device = adapter("0001", socketTwo);
  device.usbPort = "0";
  EXPECT_EQ(deviceKeyOf(device).identity, "10c4:ea60:0001:02");
}

TEST(DeviceKey, HoldsPrintableCharactersOnly) {
  EXPECT_EQ(deviceKeyOf(adapter("A B\t\xC3\xBC", socketTwo)).identity, "10c4:ea60:A_B___:02");
}

TEST(DeviceKey, WithoutUsbTheTerminalIdentifiesTheDevice) {
  const DeviceKey key = deviceKeyOf({.name = "ttyS0", .node = "/dev/ttyS0", .driver = "serial"});
  EXPECT_EQ(key.identity, "ttyS0");
  EXPECT_EQ(key.place, "");
}

TEST(DeviceKey, OnlyASerialNumberIdentifiesADeviceInAnySocket) {
  EXPECT_TRUE(isKnownAnywhere(adapter("0001", socketTwo)));
  EXPECT_FALSE(isKnownAnywhere(adapter("", socketTwo)));
  EXPECT_FALSE(isKnownAnywhere({.name = "ttyS0", .node = "/dev/ttyS0", .driver = "serial"}));
}

}  // namespace
}  // namespace tessara
