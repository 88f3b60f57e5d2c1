#include <gtest/gtest.h>

#include "linux/ports/SerialDevice.h"

namespace tessara {
namespace {

TEST(SerialDevice, TheKindOfATerminalIsItsNameWithoutTheNumber) {
  EXPECT_EQ(terminalKind("ttyUSB10"), "ttyUSB");
  EXPECT_EQ(terminalKind("console"), "console");
  EXPECT_EQ(terminalKind("12"), "");
}

TEST(SerialDevice, LinksGadgetsAndNullModemsArePortsWithoutADevice) {
  for (const auto* name : {"rfcomm0", "ttyGS1", "tnt12"}) {
    EXPECT_TRUE(isPortWithoutDevice(name)) << name;
  }
  for (const auto* name : {"tty0", "console", "ptmx", "tty", "rfcomm", "ttyS0", "hvc0"}) {
    EXPECT_FALSE(isPortWithoutDevice(name)) << name;
  }
}

TEST(SerialDevice, UsbAttributesAreHexadecimal) {
  EXPECT_EQ(usbIdentity("10c4", "EA60", "0001", "0a"), (UsbIdentity{0x10C4, 0xEA60, "0001", 10}));
}

TEST(SerialDevice, AMissingInterfaceNumberIsTheFirstInterface) {
  EXPECT_EQ(usbIdentity("10c4", "ea60", "", ""), (UsbIdentity{0x10C4, 0xEA60, "", 0}));
}

TEST(SerialDevice, WithoutVendorOrProductTheUsbDeviceIsUnknown) {
  EXPECT_EQ(usbIdentity("", "ea60", "", "00"), std::nullopt);
  EXPECT_EQ(usbIdentity("10c4", "", "", "00"), std::nullopt);
  EXPECT_EQ(usbIdentity("10c4", "ea60x", "", "00"), std::nullopt);
  EXPECT_EQ(usbIdentity("110c4", "ea60", "", "00"), std::nullopt);
}

}  // namespace
}  // namespace tessara
