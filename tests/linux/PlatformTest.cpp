#include <gmock/gmock.h>

#include "SettingsFolder.h"
#include "StillLoop.h"
#include "base/Text.h"
#include "linux/EmbeddedSimulator.h"
#include "linux/LinuxFileSystem.h"
#include "linux/LinuxPlatform.h"
#include "simulator/Announcement.h"

namespace tessara::testing {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

class PlatformTest : public SettingsFolder {
 protected:
  PlatformTest() {
    ::setenv("XDG_RUNTIME_DIR", folder().c_str(), 1);
    put(folder() / "module.json",
        R"({"vendorId": 49, "groupId": 1, "familyId": 15, "deviceId": 151})");
  }

  /// The ports in the registry of `platform`, as lines of name and port.
  static std::vector<std::string> serialPorts(Platform& platform) {
    RegistryApi& registry = platform.registryApi();
    const std::string path = R"(HARDWARE\DEVICEMAP\SERIALCOMM)";
    constexpr std::uint32_t keyRead = 0x20019;
    std::vector<std::string> lines;
    RegistryKey key = 0;
    if (registry.RegOpenKeyExA(RegistryApi::localMachine, path, 0, keyRead, key) != 0) return lines;
    for (std::uint32_t index = 0;; ++index) {
      std::string name(256, '\0');
      auto length = static_cast<std::uint32_t>(name.size());
      if (registry.RegEnumValueA(key, index, name, length) != 0) break;
      name.resize(length);
      std::uint32_t type = 0;
      std::string data(64, '\0');
      auto size = static_cast<std::uint32_t>(data.size());
      EXPECT_EQ(registry.RegQueryValueExA(key, name, type, &data, size), 0);
      lines.push_back(name + ' ' + data.substr(0, size - 1));
    }
    registry.RegCloseKey(key);
    return lines;
  }

  StillLoop loop;
};

TEST_F(PlatformTest, OffersEnteredAndSimulatedPortsToTheControl) {
  put(userFile(), "[Ports]\nCOM9\\Device=/dev/pts/5\nCOM9\\Name=\\Device\\VCP9\n");
  const Announcement announced("/dev/pts/6");
  const EmbeddedSimulator simulator(folder() / "module.json");
  LinuxPlatformOptions options;
  options.embedded = &simulator;
  LinuxPlatform platform(loop, nullptr, options);

  const auto lines = serialPorts(platform);
  EXPECT_THAT(lines, Contains(R"(\Device\Silabser100 COM100)"));
  EXPECT_THAT(lines, Contains(R"(\Device\VCP9 COM9)"));
  EXPECT_EQ(platform.ports().ports().at(0), simulator.ports().at(0));
}

TEST_F(PlatformTest, ReportsAProblemWithAPortOnceHoweverOftenPortsAreLookedUp) {
  put(userFile(), "[Ports]\nCOM0\\Device=/dev/pts/5\nCOM9\\Device=/dev/pts/9\n");
  std::vector<std::string> problems;
  LinuxPlatformOptions options;
  options.portProblemSink = [&](const std::string& text) { problems.push_back(text); };
  LinuxPlatform platform(loop, nullptr, options);
  EXPECT_THAT(serialPorts(platform), Contains(R"(\Device\Silabser9 COM9)"));
  EXPECT_EQ(platform.ports().deviceOf(9), "/dev/pts/9");
  EXPECT_THAT(problems, ::testing::ElementsAre(HasSubstr("Ports/COM0/Device")));
}

TEST_F(PlatformTest, OffersTheFirstPortsEnteredByHandIfThereAreTooMany) {
  std::string file = "[Ports]\n";
  for (int i = 1; i <= 60; ++i) file += "COM" + std::to_string(i) + "\\Device=/dev/pts/5\n";
  put(userFile(), file);
  std::vector<std::string> problems;
  LinuxPlatformOptions options;
  options.looksForDevices = false;
  options.portProblemSink = [&](const std::string& text) { problems.push_back(text); };
  LinuxPlatform platform(loop, nullptr, options);
  EXPECT_EQ(serialPorts(platform).size(), 51U);
  EXPECT_THAT(problems, ::testing::ElementsAre(HasSubstr("the port list holds at most 51 lines")));
}

TEST_F(PlatformTest, OffersThePortsOfRunningSimulators) {
  const Announcement announced("/dev/pts/6");
  LinuxPlatform platform(loop, nullptr);
  EXPECT_THAT(serialPorts(platform), Contains(R"(\Device\Silabser100 COM100)"));
}

TEST_F(PlatformTest, ReadsASimulatedModuleThroughItsCommunicationObject) {
  const EmbeddedSimulator simulator(folder() / "module.json");
  std::vector<std::string> operations;
  LinuxPlatformOptions options;
  options.embedded = &simulator;
  options.callSink = [&](const DeviceCall& call) { operations.push_back(call.operation); };
  LinuxPlatform platform(loop, nullptr, options);

  const auto object = platform.createModbusCommObject();
  std::int16_t comPort = simulator.comPort();
  std::int32_t baudrate = 19200;
  std::uint8_t address = 192;
  ASSERT_TRUE(object->ConnectWithSerialDevice(comPort, baudrate)) << object->connectFailure();
  EXPECT_EQ(object->ReadDeviceIdentifier(address), (DeviceWords{49, 1, 15, 151}));
  object->CloseSerialConnection();
  EXPECT_THAT(operations, ::testing::ElementsAre("ConnectWithSerialDevice", "ReadDeviceIdentifier",
                                                 "CloseSerialConnection"));
}

TEST_F(PlatformTest, TellsOfAPortThatIsNotThere) {
  LinuxPlatform platform(loop, nullptr);
  const auto object = platform.createModbusCommObject();
  std::int16_t comPort = 77;
  std::int32_t baudrate = 19200;
  EXPECT_FALSE(object->ConnectWithSerialDevice(comPort, baudrate));
  EXPECT_THAT(object->connectFailure(), HasSubstr("COM77"));
}

TEST_F(PlatformTest, LooksForTheCatalogueBesideTheProgram) {
  LinuxPlatform platform(loop, nullptr);
  EXPECT_EQ(platform.appPath(), fromUtf8(programFolder().string()));
}

/// A TWN4 reader on COM12.
class ReaderPort final : public PortSource {
 public:
  [[nodiscard]] std::vector<KnownPort> ports() const override {
    return {{12, R"(\Device\USBSER000)", "/dev/ttyACM0", "cdc_acm",
             UsbIdentity{0x09D8, 0x0420, "7", 0}}};
  }
};

TEST_F(PlatformTest, AnswersTheUsbKeysFromThePorts) {
  const ReaderPort reader;
  LinuxPlatformOptions options;
  options.embedded = &reader;
  LinuxPlatform platform(loop, nullptr, options);
  const auto registry = platform.createRegistryHelper();
  const auto value = [&](const std::u16string& key, const std::u16string& name) {
    return toText(registry->GetValue(registry->HKeyLocalMachine(), key, name), u".");
  };
  EXPECT_EQ(value(uR"(SYSTEM\CurrentControlSet\Services\usbser\enum)", u"0"),
            uR"(USB\VID_09D8&PID_0420\7)");
  EXPECT_EQ(value(uR"(SYSTEM\CurrentControlSet\Enum\USB\VID_09D8&PID_0420\7\Device Parameters)",
                  u"PortName"),
            u"COM12");
}

}  // namespace
}  // namespace tessara::testing
