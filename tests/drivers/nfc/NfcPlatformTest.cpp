#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/EmbeddedSimulator.h"
#include "linux/LinuxPlatform.h"
#include "linux/SettingsFolder.h"
#include "linux/StillLoop.h"
#include "ports/AdapterWords.h"
#include "ports/RegEnum.h"
#include "simulator/Announcement.h"
#include "simulator/PluggableModule.h"

namespace tessara::testing {
namespace {

using ::testing::Contains;

class NfcPlatform : public SettingsFolder {
 protected:
  NfcPlatform() { ::setenv("XDG_RUNTIME_DIR", folder().c_str(), 1); }

  static std::filesystem::path sample(const std::string& name) {
    return std::filesystem::path(TESSARA_MODULES) / (name + ".json");
  }
  static LinuxPlatformOptions optionsWith(const EmbeddedSimulator& simulator) {
    LinuxPlatformOptions options;
    options.embedded = &simulator;
    options.usbReaders = &simulator.usbReaders();
    options.looksForDevices = false;
    return options;
  }
  static std::vector<std::u16string> portLabels(LinuxPlatform& platform) {
    RegEnum ports;
    const auto registry = platform.createRegistryHelper();
    EnumerateComPorts(ports, *registry, platform.registryApi());
    std::vector<std::u16string> labels(static_cast<std::size_t>(ports.PortCount));
    for (std::size_t line = 0; line < labels.size(); ++line) labels[line] = ports.PortLabels[line];
    return labels;
  }

  StillLoop loop;
};

TEST_F(NfcPlatform, ListsAnEmbeddedTwn4UnderItsOwnName) {
  const EmbeddedSimulator simulator(sample("nfc-twn4-healthy"));
  LinuxPlatform platform(loop, nullptr, optionsWith(simulator));
  EXPECT_EQ(simulator.comPort(), 100);
  EXPECT_THAT(portLabels(platform), Contains(u"TWN4 NFC-Adapter (COM100)"));
}

TEST_F(NfcPlatform, ListsAnAnnouncedTwn4UnderItsOwnName) {
  const Announcement announced("/dev/pts/6", twn4Prefix);
  LinuxPlatformOptions options;
  options.looksForDevices = false;
  LinuxPlatform platform(loop, nullptr, options);
  EXPECT_THAT(portLabels(platform), Contains(u"TWN4 NFC-Adapter (COM100)"));
}

TEST_F(NfcPlatform, ReadsThroughAnEmbeddedTwn4) {
  const EmbeddedSimulator simulator(sample("nfc-twn4-healthy"));
  LinuxPlatform platform(loop, nullptr, optionsWith(simulator));
  const auto object = platform.createNfcCommObject();
  std::int16_t comPort = simulator.comPort();
  std::int32_t baudrate = 19200;
  std::uint8_t address = 192;
  ASSERT_TRUE(object->ConnectWithSerialDevice(comPort, baudrate)) << object->connectFailure();
  EXPECT_EQ(object->ReadDeviceIdentifier(address), (DeviceWords{49, 1, 16, 161}));
}

TEST_F(NfcPlatform, FindsAnEmbeddedUsbReaderAndReadsThroughIt) {
  const EmbeddedSimulator simulator(sample("nfc-usb-healthy"));
  LinuxPlatform platform(loop, nullptr, optionsWith(simulator));
  EXPECT_EQ(simulator.comPort(), usbReaderPort);
  EXPECT_TRUE(simulator.ports().empty());
  NfcReaderLibrary& library = platform.nfcReaderLibrary();
  std::string reply(256, '\0');
  EXPECT_EQ(library.CR95HFDLL_USBconnect(), 0);
  EXPECT_EQ(library.CR95HFDll_Echo(reply), 0);
  EXPECT_EQ(library.CR95HFDLL_getMCUrev(reply), 0);

  const auto object = platform.createNfcCommObject();
  std::int16_t comPort = usbReaderPort;
  std::int32_t baudrate = 19200;
  std::uint8_t address = 192;
  ASSERT_TRUE(object->ConnectWithSerialDevice(comPort, baudrate)) << object->connectFailure();
  EXPECT_EQ(object->ReadDeviceIdentifier(address), (DeviceWords{49, 1, 15, 151}));
}

TEST_F(NfcPlatform, FindsNoUsbReaderWithAnEmbeddedPort) {
  const EmbeddedSimulator simulator(sample("nfc-twn4-healthy"));
  LinuxPlatform platform(loop, nullptr, optionsWith(simulator));
  EXPECT_NE(platform.nfcReaderLibrary().CR95HFDLL_USBconnect(), 0);
}

}  // namespace
}  // namespace tessara::testing
