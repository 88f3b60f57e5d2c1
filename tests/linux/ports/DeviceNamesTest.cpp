#include <array>
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "linux/ports/DeviceNames.h"

namespace tessara {
namespace {

SerialDevice device(const std::string& name, const std::string& driver) {
  return {.name = name, .node = "/dev/" + name, .driver = driver};
}

TEST(DeviceNames, TheDriverGivesTheNameAndTheKernelTheNumber) {
  EXPECT_EQ(deviceNameOf(device("ttyUSB0", "cp210x")), R"(\Device\Silabser0)");
  EXPECT_EQ(deviceNameOf(device("ttyUSB12", "cp210x")), R"(\Device\Silabser12)");
  EXPECT_EQ(deviceNameOf(device("ttyUSB3", "ftdi_sio")), R"(\Device\VCP3)");
  EXPECT_EQ(deviceNameOf(device("ttyS0", "serial8250")), R"(\Device\Serial0)");
  EXPECT_EQ(deviceNameOf(device("ttyS1", "serial")), R"(\Device\Serial1)");
  EXPECT_EQ(deviceNameOf(device("ttyS2", "port")), R"(\Device\Serial2)");
}

TEST(DeviceNames, ModemsHaveThreeDigits) {
  EXPECT_EQ(deviceNameOf(device("ttyACM0", "cdc_acm")), R"(\Device\USBSER000)");
  EXPECT_EQ(deviceNameOf(device("ttyACM42", "cdc_acm")), R"(\Device\USBSER042)");
  EXPECT_EQ(deviceNameOf(device("ttyACM1000", "cdc_acm")), R"(\Device\USBSER1000)");
}

TEST(DeviceNames, AnyOtherDriverGivesItsOwnName) {
  EXPECT_EQ(deviceNameOf(device("ttyUSB4", "pl2303")), R"(\Device\pl23034)");
  EXPECT_EQ(deviceNameOf(device("rfcomm0", "rfcomm")), R"(\Device\rfcomm0)");
}

TEST(DeviceNames, BothHalvesOfOneDriverGiveOneName) {
  EXPECT_EQ(deviceNameOf(device("ttyUSB1", "ch341-uart")), R"(\Device\ch3411)");
  EXPECT_EQ(deviceNameOf(device("ttyUSB1", "ch341")), R"(\Device\ch3411)");
}

TEST(DeviceNames, AUartOfAnyDriverIsASerialPortOfTheMachine) {
  SerialDevice uart = device("ttyAMA0", "uart-pl011");
  uart.uartType = "32";
  EXPECT_TRUE(isBuiltInUart(uart));
  EXPECT_EQ(deviceNameOf(uart), R"(\Device\Serial0)");
  EXPECT_FALSE(isBuiltInUart(device("ttyUSB0", "cp210x")));
}

TEST(DeviceNames, AUartOfTypeZeroIsAPhantom) {
  SerialDevice uart = device("ttyS1", "serial8250");
  uart.uartType = "0";
  EXPECT_TRUE(isPhantomUart(uart));
  uart.uartType = "4";
  EXPECT_FALSE(isPhantomUart(uart));
}

TEST(DeviceNames, AnAdapterIsNotAPhantom) {
  EXPECT_FALSE(isPhantomUart(device("ttyUSB0", "cp210x")));
}

TEST(DeviceNames, AUartThatCannotBeAskedCountsAsHardware) {
  SerialDevice uart = device("ttyS77", "serial8250");
  uart.node = "/dev/null";
  EXPECT_FALSE(isPhantomUart(uart));
  uart.node = "/dev/no such device";
  EXPECT_FALSE(isPhantomUart(uart));
}

}  // namespace
}  // namespace tessara
