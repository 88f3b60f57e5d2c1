#include <algorithm>
#include <filesystem>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "drivers/nfc/ReaderUnderTest.h"
#include "simulator/ModuleFile.h"
#include "simulator/ModuleFileError.h"
#include "simulator/PluggableModule.h"
#include "simulator/nfc/NfcModuleFile.h"

namespace tessara {
namespace {

using testing::ReaderKind;

struct Sample {
  const char* name;
  ReaderKind reader;

  friend void PrintTo(const Sample& shown, std::ostream* stream) { *stream << shown.name; }
};

std::filesystem::path fileOf(const std::string& name) {
  return std::filesystem::path(TESSARA_MODULES) / (name + ".json");
}

class NfcSamples : public ::testing::TestWithParam<Sample> {
 protected:
  const SimulatedNfcModule sample = readModuleFile(fileOf(GetParam().name), readNfcModule);
};

INSTANTIATE_TEST_SUITE_P(Files, NfcSamples,
                         ::testing::Values(Sample{"nfc-twn4-healthy", ReaderKind::Twn4},
                                           Sample{"nfc-twn4-faulty", ReaderKind::Twn4},
                                           Sample{"nfc-usb-healthy", ReaderKind::Usb}),
                         [](const auto& test) {
                           std::string name = test.param.name;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

TEST_P(NfcSamples, HoldEverythingThatAReadAsksFor) {
  const auto reader = testing::makeReader(GetParam().reader, sample);
  NfcDriver driver(*reader, reader->usbReaders());
  std::int16_t comPort = reader->comPort();
  std::int32_t baudrate = 19200;
  std::uint8_t address = defaultAddress;
  ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, baudrate));
  EXPECT_EQ(driver.ReadDeviceIdentifier(address),
            DeviceWords(sample.module.identification.begin(), sample.module.identification.end()));
  EXPECT_EQ(driver.ReadInputRegisters(192, firmwareRegister, 1, 2), (DeviceWords{0x2000}));
  EXPECT_EQ(driver.ReadInputRegisters(192, secondVersionRegister, 1, 2), (DeviceWords{0x1010}));
  EXPECT_EQ(driver.ReadInputRegisters(192, serialNumberRegister, 4, 2).size(), 4U);
  EXPECT_EQ(driver.ReadInputRegisters(192, nameRegister, 16, 2).size(), 16U);
  for (const std::int32_t status : {0, 100, 101, 102, 103, 104}) {
    EXPECT_EQ(driver.ReadInputRegisters(192, status, 1, 2).size(), 1U) << status;
  }
}

TEST(NfcSampleFiles, ConnectATwn4ToAPortOfItsOwn) {
  const PluggableModule module = loadPluggableModule(fileOf("nfc-twn4-healthy"));
  EXPECT_EQ(module.name, "TESSARA UM 161 NFC");
  EXPECT_EQ(module.deviceNamePrefix, R"(\Device\USBSER)");
  EXPECT_FALSE(loadUsbReaderModule(fileOf("nfc-twn4-healthy")).has_value());
}

TEST(NfcSampleFiles, ConnectTheUsbReaderToNoPort) {
  EXPECT_TRUE(loadUsbReaderModule(fileOf("nfc-usb-healthy")).has_value());
  try {
    (void)loadPluggableModule(fileOf("nfc-usb-healthy"));
    FAIL() << "it has no port";
  } catch (const ModuleFileError& error) {
    EXPECT_NE(std::string(error.what()).find("link: the USB NFC reader is not a port"),
              std::string::npos)
        << error.what();
  }
}

}  // namespace
}  // namespace tessara
