#include <gtest/gtest.h>

#include "Fakes.h"
#include "base/RunTimeError.h"
#include "linux/ports/SerialCommRegistry.h"

namespace tessara {
namespace {

constexpr std::uint32_t readAccess = 0x20019;
constexpr std::uint32_t changeAccess = 0x3F;
constexpr const char* serialComm = R"(HARDWARE\DEVICEMAP\SERIALCOMM)";

class SerialCommRegistryTest : public ::testing::Test {
 protected:
  SerialCommRegistryTest() {
    source.list = {
        {3, R"(\Device\Silabser0)", "/dev/ttyUSB0"},
        {12, R"(\Device\USBSER000)", "/dev/ttyACM0", "cdc_acm", UsbIdentity{0x2458, 1, "V", 0}}};
  }

  RegistryKey open(std::uint32_t access = readAccess) {
    RegistryKey key = 0;
    EXPECT_EQ(registry.RegOpenKeyExA(RegistryApi::localMachine, serialComm, 0, access, key), 0);
    return key;
  }

  std::int32_t resultOfOpening(std::int32_t hive, const std::string& subKey) {
    RegistryKey key = 0;
    const std::int32_t result = registry.RegOpenKeyExA(hive, subKey, 0, readAccess, key);
    EXPECT_EQ(key != 0, result == 0);
    return result;
  }

  std::int32_t enumerate(RegistryKey key, std::uint32_t index, std::uint32_t length = 256) {
    name.assign(length, 'x');
    nameLength = length;
    return registry.RegEnumValueA(key, index, name, nameLength);
  }

  std::vector<std::string> names(RegistryKey key) {
    std::vector<std::string> all;
    for (std::uint32_t index = 0; enumerate(key, index) == 0; ++index) {
      all.push_back(name.substr(0, nameLength));
    }
    return all;
  }

  Variant firstViator() {
    return registry.usbKeyValue(
        uR"(SYSTEM\ControlSet001\Enum\USB\VID_2458&PID_0001\1\Device Parameters)", u"PortName");
  }

  testing::FakePorts source;
  SerialCommRegistry registry{source};
  std::string name;
  std::uint32_t nameLength = 0;
};

TEST_F(SerialCommRegistryTest, ListsTheDeviceNamesInTheOrderOfThePorts) {
  EXPECT_EQ(names(open()),
            (std::vector<std::string>{R"(\Device\Silabser0)", R"(\Device\USBSER000)"}));
}

TEST_F(SerialCommRegistryTest, TheWalkEndsWithNoMoreItems) {
  EXPECT_EQ(enumerate(open(), 2), 259);
}

TEST_F(SerialCommRegistryTest, ANameNeedsRoomForItsFinalZero) {
  const RegistryKey key = open();
  EXPECT_EQ(enumerate(key, 0, 17), 234);
  EXPECT_EQ(enumerate(key, 0, 18), 0);
  EXPECT_EQ(name, std::string(R"(\Device\Silabser0)") + '\0');
  EXPECT_EQ(nameLength, 17U);
}

TEST_F(SerialCommRegistryTest, AQueryWithoutABufferReturnsTypeAndSizeWithTheFinalZero) {
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  EXPECT_EQ(
      registry.RegQueryValueExA(open(changeAccess), R"(\Device\USBSER000)", type, nullptr, size),
      0);
  EXPECT_EQ(type, 1U);
  EXPECT_EQ(size, 6U);
}

TEST_F(SerialCommRegistryTest, AQueryWithABufferReturnsThePortAndItsFinalZero) {
  std::string data(10, 'x');
  std::uint32_t type = 0;
  std::uint32_t size = 10;
  EXPECT_EQ(registry.RegQueryValueExA(open(), R"(\device\usbser000)", type, &data, size), 0);
  EXPECT_EQ(data, std::string("COM12\0xxxx", 10));
  EXPECT_EQ(size, 6U);
}

TEST_F(SerialCommRegistryTest, ABufferThatIsTooSmallReturnsTheSize) {
  std::string data(5, 'x');
  std::uint32_t type = 0;
  std::uint32_t size = 5;
  EXPECT_EQ(registry.RegQueryValueExA(open(), R"(\Device\USBSER000)", type, &data, size), 234);
  EXPECT_EQ(size, 6U);
  EXPECT_EQ(data, "xxxxx");
  data.assign(6, 'x');
  size = 5;
  EXPECT_EQ(registry.RegQueryValueExA(open(), R"(\Device\USBSER000)", type, &data, size), 234);
}

TEST_F(SerialCommRegistryTest, AnUnknownValueIsNotFound) {
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  EXPECT_EQ(registry.RegQueryValueExA(open(), R"(\Device\Silabser)", type, nullptr, size), 2);
}

TEST_F(SerialCommRegistryTest, WithoutPortsThereIsNoKey) {
  source.list.clear();
  EXPECT_EQ(resultOfOpening(RegistryApi::localMachine, serialComm), 2);
}

TEST_F(SerialCommRegistryTest, OtherKeysAndHivesAreNotFound) {
  EXPECT_EQ(resultOfOpening(RegistryApi::localMachine + 1, serialComm), 2);
  EXPECT_EQ(resultOfOpening(RegistryApi::localMachine, R"(HARDWARE\DEVICEMAP)"), 2);
  EXPECT_EQ(resultOfOpening(RegistryApi::localMachine, R"(hardware\DeviceMap\SerialComm)"), 0);
}

TEST_F(SerialCommRegistryTest, AClosedOrInventedHandleIsInvalid) {
  const RegistryKey key = open();
  EXPECT_EQ(registry.RegCloseKey(key), 0);
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  EXPECT_EQ(registry.RegCloseKey(key), 6);
  EXPECT_EQ(registry.RegCloseKey(0), 6);
  EXPECT_EQ(enumerate(key, 0), 6);
  EXPECT_EQ(registry.RegQueryValueExA(key, R"(\Device\Silabser0)", type, nullptr, size), 6);
}

TEST_F(SerialCommRegistryTest, NamesThatTwoPortsShareGetAnotherNumber) {
  source.list = {{3, R"(\Device\Serial0)", "/dev/ttyS0"},
                 {4, R"(\Device\Serial0)", "/dev/ttyAMA0"},
                 {5, R"(\Device\SERIAL1)", "/dev/ttyS1"},
                 {6, "Viator", "/dev/pts/1"},
                 {7, "Viator", "/dev/pts/2"}};
  EXPECT_EQ(names(open()), (std::vector<std::string>{R"(\Device\Serial0)", R"(\Device\Serial1)",
                                                     R"(\Device\SERIAL2)", "Viator", "Viator0"}));
}

TEST_F(SerialCommRegistryTest, HoldsAsManyPortsAsTheListOfTheControlAndReportsTheOthers) {
  std::vector<std::string> problems;
  SerialCommRegistry limited(source, [&](const std::string& text) { problems.push_back(text); });
  RegistryKey key = 0;
  const auto open = [&](std::int16_t ports) {
    source.list.clear();
    for (std::int16_t i = 1; i <= ports; ++i) {
      source.list.push_back({i, R"(\Device\Silabser)" + std::to_string(i), "/dev/x", "",
                             UsbIdentity{0x2458, 1, std::to_string(i), 0}});
    }
    ASSERT_EQ(limited.RegOpenKeyExA(RegistryApi::localMachine, serialComm, 0, readAccess, key), 0);
  };
  const auto errorAt = [&](std::uint32_t index) {
    name.assign(256, 'x');
    nameLength = 256;
    return limited.RegEnumValueA(key, index, name, nameLength);
  };
  open(51);
  EXPECT_EQ(errorAt(50), 0);
  EXPECT_TRUE(problems.empty());
  open(53);
  EXPECT_EQ(errorAt(50), 0);
  EXPECT_EQ(errorAt(51), 259);
  EXPECT_EQ(problems, std::vector<std::string>{
                          "There are 53 ports, and the port list holds at most 51 lines: COM52 and "
                          "all ports after it are left out"});
}

TEST_F(SerialCommRegistryTest, OneWalkSeesOneStateOfTheSystem) {
  EXPECT_EQ(firstViator(), Variant{std::u16string(u"COM12")});
  const RegistryKey key = open();
  source.list.clear();
  EXPECT_EQ(names(key).size(), 2U);
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  EXPECT_EQ(
      registry.RegQueryValueExA(open(changeAccess), R"(\Device\USBSER000)", type, nullptr, size),
      0);
  EXPECT_EQ(registry.usbKeyValue(uR"(SYSTEM\CurrentControlSet\Services\usbser\enum)", u"Count"),
            Variant{std::int64_t{1}});
  EXPECT_EQ(source.asked, 1);
}

TEST_F(SerialCommRegistryTest, ANewWalkSeesTheNewState) {
  (void)open();
  source.list = {{5, R"(\Device\Silabser4)", "/dev/ttyUSB4"}};
  EXPECT_EQ(names(open()), std::vector<std::string>{R"(\Device\Silabser4)"});
  source.list.clear();
  EXPECT_EQ(firstViator(), Variant{});
  EXPECT_EQ(resultOfOpening(RegistryApi::localMachine, serialComm), 2);
}

TEST_F(SerialCommRegistryTest, AnOpenKeyKeepsWhatItSaw) {
  const RegistryKey before = open();
  source.list.clear();
  EXPECT_EQ(firstViator(), Variant{});
  EXPECT_EQ(names(before).size(), 2U);
}

TEST_F(SerialCommRegistryTest, TheFirstQuestionLooksTheSystemUp) {
  EXPECT_EQ(registry.usbKeyValue(uR"(SYSTEM\CurrentControlSet\Services\usbser\enum)", u"Count"),
            Variant{std::int64_t{1}});
  EXPECT_EQ(source.asked, 1);
}

}  // namespace
}  // namespace tessara
