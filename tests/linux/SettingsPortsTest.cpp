#include <algorithm>

#include <gmock/gmock.h>

#include "SettingsFolder.h"
#include "linux/SettingsPorts.h"

namespace tessara::testing {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class SettingsPortsTest : public SettingsFolder {
 protected:
  /// The ports at a new look, with what is reported of them in `problems`.
  std::vector<KnownPort> look() {
    problems.clear();
    return SettingsPorts([this](const std::string& text) { problems.push_back(text); }).ports();
  }

  std::vector<std::string> problems;
};

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
  put(userFile(), "[Ports]\nCOM9\\Device=\nCOM9\\Name=\\Device\\VCP0\n");
  EXPECT_THAT(look(), IsEmpty());
  EXPECT_THAT(problems, IsEmpty());
}

TEST_F(SettingsPortsTest, LeaveOutABadSettingAndReportIt) {
  for (const std::string name : {"COM9", "COM9\\Path", "COMx\\Device", "COM0\\Device",
                                 "COM999\\Device", "COM32768\\Device", "LPT1\\Device"}) {
    put(userFile(), "[Ports]\n" + name + "=/dev/pts/5\nCOM8\\Device=/dev/pts/8\n");
    std::string spelled = name;
    std::replace(spelled.begin(), spelled.end(), '\\', '/');
    EXPECT_THAT(look(), ElementsAre(KnownPort{8, "\\Device\\Silabser8", "/dev/pts/8"}));
    EXPECT_THAT(problems,
                ElementsAre(HasSubstr("The setting Ports/" + spelled + " is not part of a port")));
  }
}

TEST_F(SettingsPortsTest, LeaveOutALineThatIsNotASettingAndReportIt) {
  put(userFile(), "[Ports]\nCOM0\nCOM8\\Device=/dev/pts/8\n");
  EXPECT_THAT(look(), ElementsAre(KnownPort{8, "\\Device\\Silabser8", "/dev/pts/8"}));
  EXPECT_THAT(problems, ElementsAre(AllOf(HasSubstr(userFile().string()),
                                          HasSubstr("line 2: \"COM0\" is neither"))));
}

TEST_F(SettingsPortsTest, LeaveOutAPortWithAnUnusableValueAndReportIt) {
  put(userFile(),
      "[Ports]\nCOM8\\Device=/dev/pts/8\nCOM9\\Device=/dev/pts/9\nCOM9\\Name=@Invalid()\n"
      "COM10\\Device=\"/dev/pts/10\n");
  EXPECT_THAT(look(), ElementsAre(KnownPort{8, "\\Device\\Silabser8", "/dev/pts/8"}));
  EXPECT_THAT(problems, ElementsAre(HasSubstr("Ports/COM10/Device"), HasSubstr("Ports/COM9/Name")));
}

TEST_F(SettingsPortsTest, LeaveOutAPortWithoutADeviceAndReportIt) {
  put(userFile(), "[Ports]\nCOM8\\Device=/dev/pts/8\nCOM9\\Name=\\Device\\VCP0\n");
  EXPECT_EQ(look().size(), 1U);
  EXPECT_THAT(problems, ElementsAre(HasSubstr("COM9/Device is missing")));
}

TEST_F(SettingsPortsTest, HaveNamesThatTheWalkOverThePortsHasRoomFor) {
  const auto enter = [this](std::size_t length) {
    put(userFile(), "[Ports]\nCOM8\\Device=/dev/pts/8\nCOM9\\Device=/dev/pts/5\nCOM9\\Name=" +
                        std::string(length, 'n') + "\n");
  };
  enter(240);
  EXPECT_EQ(look().at(1).deviceName, std::string(240, 'n'));
  EXPECT_THAT(problems, IsEmpty());
  enter(241);
  EXPECT_EQ(look().size(), 1U);
  EXPECT_THAT(problems, ElementsAre(HasSubstr("Ports/COM9/Name is longer than 240 bytes")));
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
