#include <chrono>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/ReadError.h"
#include "drivers/nfc/HidapiReaders.h"
#include "drivers/nfc/LinuxNfcReaderLibrary.h"
#include "drivers/nfc/MockedUsbReader.h"
#include "drivers/nfc/NfcDriver.h"
#include "drivers/nfc/NfcSample.h"
#include "ports/AdapterWords.h"

namespace tessara {
namespace {

using testing::BoardOnNode;
using ::testing::HasSubstr;
using testing::nfcSample;

class NoPorts final : public PortDirectory {
 public:
  [[nodiscard]] std::optional<std::string> deviceOf(std::int16_t /*comPort*/) const override {
    return std::nullopt;
  }
};

class HidrawReaders : public ::testing::Test {
 protected:
  bool connect(NfcDriver& connecting) {
    std::int16_t comPort = usbReaderPort;
    std::int32_t baudrate = 19200;
    return connecting.ConnectWithSerialDevice(comPort, baudrate);
  }

  testing::MockedComputer computer;
  HidapiReaders readers;
  NoPorts ports;
  NfcDriver driver{ports, readers};
};

TEST_F(HidrawReaders, AreNotThereIfNoneIsPluggedIn) {
  EXPECT_FALSE(connect(driver));
  EXPECT_EQ(driver.connectFailure(), "USB NFC reader is not there");
  LinuxNfcReaderLibrary library(readers);
  EXPECT_NE(library.CR95HFDLL_USBconnect(), 0);
}

TEST_F(HidrawReaders, AreNotOtherDevices) {
  computer.plugIn("046D", "C31C");
  EXPECT_FALSE(connect(driver));
}

TEST_F(HidrawReaders, ReadAModuleThroughTheNode) {
  computer.plugIn("0483", "D0D0");
  const BoardOnNode board(computer.deviceEnd(), nfcSample());
  ASSERT_TRUE(connect(driver)) << driver.connectFailure();
  std::uint8_t address = 192;
  EXPECT_EQ(driver.ReadDeviceIdentifier(address), (DeviceWords{49, 1, 15, 151}));
  EXPECT_EQ(driver.ReadInputRegisters(192, 4, 1, 2), (DeviceWords{0x2000}));
  EXPECT_EQ(driver.ReadInputRegisters(192, 1000, 125, 2).back(), 1124);
  driver.CloseSerialConnection();
  ASSERT_TRUE(connect(driver));
  EXPECT_EQ(driver.ReadInputRegisters(192, 3, 1, 2), (DeviceWords{0x1010}));
}

TEST_F(HidrawReaders, AreFoundByTheLibraryAndLeftToTheDriver) {
  computer.plugIn("0483", "D0D0");
  const BoardOnNode board(computer.deviceEnd(), nfcSample());
  LinuxNfcReaderLibrary library(readers);
  std::string reply(256, '\0');
  EXPECT_EQ(library.CR95HFDLL_USBconnect(), 0);
  EXPECT_EQ(library.CR95HFDll_Echo(reply), 0);
  EXPECT_STREQ(reply.c_str(), "5500");
  EXPECT_EQ(library.CR95HFDLL_getMCUrev(reply), 0);
  EXPECT_STREQ(reply.c_str(), "0003030704");
  EXPECT_TRUE(connect(driver));
}

TEST_F(HidrawReaders, AreHeldByOneUserAtATime) {
  computer.plugIn("0483", "D0D0");
  ASSERT_TRUE(connect(driver));
  HidapiReaders otherReaders;
  NfcDriver other(ports, otherReaders);
  EXPECT_FALSE(connect(other));
  EXPECT_EQ(other.connectFailure(), "USB NFC reader is in use by another program");
  driver.CloseSerialConnection();
  EXPECT_TRUE(connect(other));
}

TEST_F(HidrawReaders, AreNamedByTheirNode) {
  computer.plugIn("0483", "D0D0");
  ASSERT_TRUE(connect(driver));
  try {
    driver.ReadInputRegisters(192, 4, 1, 2);
    FAIL() << "nobody is at the other end";
  } catch (const ReadError& error) {
    EXPECT_THAT(error.what(),
                HasSubstr("USB NFC reader (/dev/hidraw0), input register 4 at address "
                          "192: the reader does not answer"));
  }
}

}  // namespace
}  // namespace tessara
