#include <gtest/gtest.h>

#include "linux/ports/UsbKeys.h"

namespace tessara {
namespace {

KnownPort port(std::int16_t number, const std::string& deviceName, const UsbIdentity& usb) {
  return {number, deviceName, "/dev/ttyACM0", "cdc_acm", usb};
}

KnownPort twn4(std::int16_t number, const std::string& serial) {
  return port(number, R"(\Device\USBSER000)", {0x09D8, 0x0420, serial, 0});
}

KnownPort viator(std::int16_t number) {
  return port(number, R"(\Device\USBSER001)", {0x2458, 0x0001, "V" + std::to_string(number), 0});
}

const std::u16string usbser = uR"(SYSTEM\CurrentControlSet\Services\usbser\enum)";

Variant portNameOf(const UsbKeys& keys, const std::u16string& instance) {
  return keys.value(uR"(SYSTEM\CurrentControlSet\Enum\)" + instance + uR"(\Device Parameters)",
                    u"PortName");
}

Variant viatorPort(const UsbKeys& keys, const std::u16string& instance) {
  return keys.value(
      uR"(SYSTEM\ControlSet001\Enum\USB\VID_2458&PID_0001\)" + instance + uR"(\Device Parameters)",
      u"PortName");
}

Variant text(const std::u16string& text) {
  return text;
}

TEST(UsbKeys, WithoutPortsUsbserServesNothing) {
  const UsbKeys keys({});
  EXPECT_EQ(keys.value(usbser, u"Count"), Variant{std::int64_t{0}});
  EXPECT_EQ(keys.value(usbser, u"0"), Variant{});
  EXPECT_EQ(viatorPort(keys, u"1"), Variant{});
}

TEST(UsbKeys, ViatorsAreNumberedFromOne) {
  const UsbKeys keys({viator(7), twn4(9, "A1"), viator(4)});
  EXPECT_EQ(viatorPort(keys, u"1"), text(u"COM7"));
  EXPECT_EQ(viatorPort(keys, u"2"), text(u"COM4"));
  EXPECT_EQ(viatorPort(keys, u"3"), Variant{});
  EXPECT_EQ(viatorPort(keys, u"0"), Variant{});
}

TEST(UsbKeys, UsbserListsTheInstancesOfItsDevices) {
  const UsbKeys keys({twn4(9, "A1"), viator(4)});
  EXPECT_EQ(keys.value(usbser, u"Count"), Variant{std::int64_t{2}});
  EXPECT_EQ(keys.value(usbser, u"0"), text(uR"(USB\VID_09D8&PID_0420\A1)"));
  EXPECT_EQ(keys.value(usbser, u"1"), text(uR"(USB\VID_2458&PID_0001\V4)"));
  EXPECT_EQ(keys.value(usbser, u"2"), Variant{});
}

TEST(UsbKeys, EachInstanceHasItsPort) {
  const UsbKeys keys({twn4(9, "A1"), twn4(12, "A2")});
  EXPECT_EQ(portNameOf(keys, uR"(USB\VID_09D8&PID_0420\A1)"), text(u"COM9"));
  EXPECT_EQ(portNameOf(keys, uR"(USB\VID_09D8&PID_0420\A2)"), text(u"COM12"));
  EXPECT_EQ(portNameOf(keys, u""), Variant{});
}

TEST(UsbKeys, DevicesOfOtherDriversAreNotServedByUsbser) {
  const UsbKeys keys({port(3, R"(\Device\Silabser0)", {0x10C4, 0xEA60, "0001", 0})});
  EXPECT_EQ(keys.value(usbser, u"Count"), Variant{std::int64_t{0}});
  EXPECT_EQ(portNameOf(keys, uR"(USB\VID_10C4&PID_EA60\0001)"), text(u"COM3"));
}

TEST(UsbKeys, ReadersWithoutOrWithTheSameSerialNumberHavePathsOfTheirOwn) {
  const UsbKeys keys({twn4(3, ""), twn4(4, ""), twn4(5, "A"), twn4(6, "A")});
  EXPECT_EQ(keys.value(usbser, u"Count"), Variant{std::int64_t{4}});
  for (int i = 0; i < 4; ++i) {
    const auto path = std::get<std::u16string>(
        keys.value(usbser, std::u16string(1, static_cast<char16_t>(u'0' + i))));
    EXPECT_TRUE(path.starts_with(uR"(USB\VID_09D8&PID_0420\)"));
    EXPECT_EQ(portNameOf(keys, path),
              text(std::u16string(u"COM") + static_cast<char16_t>(u'3' + i)));
  }
}

TEST(UsbKeys, InterfacesOfOneDeviceHavePathsOfTheirOwn) {
  const UsbKeys keys({port(3, R"(\Device\USBSER000)", {0x1234, 0xABCD, "S", 0}),
                      port(4, R"(\Device\USBSER001)", {0x1234, 0xABCD, "S", 2})});
  EXPECT_EQ(portNameOf(keys, uR"(USB\VID_1234&PID_ABCD\S)"), text(u"COM3"));
  EXPECT_EQ(portNameOf(keys, uR"(USB\VID_1234&PID_ABCD&MI_02\S)"), text(u"COM4"));
}

TEST(UsbKeys, PortsWithoutUsbHaveNoValues) {
  const UsbKeys keys({{9, R"(\Device\USBSER009)", "/dev/pts/5"}});
  EXPECT_EQ(keys.value(usbser, u"Count"), Variant{std::int64_t{0}});
}

TEST(UsbKeys, LetterCaseIsIgnored) {
  const UsbKeys keys({twn4(9, "aB")});
  EXPECT_EQ(keys.value(u"system\\currentcontrolset\\services\\USBSER\\Enum", u"COUNT"),
            Variant{std::int64_t{1}});
  EXPECT_EQ(portNameOf(keys, uR"(usb\vid_09d8&pid_0420\Ab)"), text(u"COM9"));
}

}  // namespace
}  // namespace tessara
