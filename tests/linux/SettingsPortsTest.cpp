#include <gmock/gmock.h>

#include "SettingsFolder.h"
#include "base/RunTimeError.h"
#include "linux/SettingsPorts.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using SettingsPortsTest = SettingsFolder;

TEST_F(SettingsPortsTest, AreNoneWithoutTheGroup) {
  put(userFile(), "[Settings]\nLanguage=2\n");
  EXPECT_THAT(SettingsPorts().ports(), IsEmpty());
}

TEST_F(SettingsPortsTest, ComeInTheOrderOfTheirNumbers) {
  put(userFile(),
      "[Ports]\nCOM10\\Device=/dev/ttyS9\nCOM10\\Name=\\Device\\VCP0\n"
      "COM9\\Device=/dev/pts/5\nCOM9\\Name=\\Device\\Silabser9\n");
  EXPECT_THAT(SettingsPorts().ports(),
              ElementsAre(KnownPort{9, "\\Device\\Silabser9", "/dev/pts/5"},
                          KnownPort{10, "\\Device\\VCP0", "/dev/ttyS9"}));
}

TEST_F(SettingsPortsTest, CountAsProgrammingAdaptersWithoutAName) {
  put(userFile(), "[Ports]\nCOM9\\Device=/dev/pts/5\n");
  EXPECT_THAT(SettingsPorts().ports(),
              ElementsAre(KnownPort{9, "\\Device\\Silabser9", "/dev/pts/5"}));
}

TEST_F(SettingsPortsTest, AreSwitchedOffByAnEmptyDevice) {
  put(systemFile(), "[Ports]\nCOM9\\Device=/dev/pts/5\n");
  put(userFile(), "[Ports]\nCOM9\\Device=\nCOM8\\Name=\\Device\\VCP0\n");
  EXPECT_THAT(SettingsPorts().ports(), IsEmpty());
}

TEST_F(SettingsPortsTest, NameAnEntryThatIsNoPort) {
  // QSettings takes a file of the same size and time for the same: each gets a size of its own.
  std::string node = "/dev/pts/5";
  for (const std::string name : {"COM9", "COM9\\Path", "COMx\\Device", "COM0\\Device",
                                 "COM999\\Device", "COM32768\\Device", "LPT1\\Device"}) {
    node += std::string(20, '5');
    std::string file = "[Ports]\n";
    file.append(name).append("=").append(node).append("\n");
    put(userFile(), file);
    std::string spelled = name;
    std::replace(spelled.begin(), spelled.end(), '\\', '/');
    EXPECT_THAT(errorOf([] { static_cast<void>(SettingsPorts().ports()); }),
                HasSubstr("Ports/" + spelled + " names no port"));
  }
}

TEST_F(SettingsPortsTest, HaveNamesThatTheWalkOverThePortsHasRoomFor) {
  const auto enter = [this](std::size_t length) {
    put(userFile(),
        "[Ports]\nCOM9\\Device=/dev/pts/5\nCOM9\\Name=" + std::string(length, 'n') + "\n");
  };
  enter(240);
  EXPECT_EQ(SettingsPorts().ports().at(0).deviceName, std::string(240, 'n'));
  enter(241);
  EXPECT_THAT(errorOf([] { static_cast<void>(SettingsPorts().ports()); }),
              HasSubstr("Ports/COM9/Name is longer than 240 bytes"));
}

TEST(ComPortNumber, IsTheNumberOfAPort) {
  EXPECT_EQ(comPortNumber("COM1"), 1);
  EXPECT_EQ(comPortNumber("COM32767"), 32767);
}

TEST(ComPortNumber, IsNothingForAnyOtherText) {
  for (const char* text : {"", "COM", "COM0", "COM-3", "COM+3", "COM3 ", "COM 3", "COM3x", "com3",
                           "3", "COM999", "COM32768"}) {
    EXPECT_EQ(comPortNumber(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace tessara::testing
