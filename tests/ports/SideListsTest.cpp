#include <algorithm>

#include "FakeRegistry.h"

namespace tessara {
namespace {

using testing::port;
using Lines = std::vector<std::u16string>;

class SideLists : public testing::PortsFixture {
 protected:
  [[nodiscard]] bool asked(const std::string& entry) const {
    return std::find(log.begin(), log.end(), "get " + entry) != log.end();
  }

  static std::string viatorKey(int instance) {
    return R"(SYSTEM\ControlSet001\Enum\USB\VID_2458&PID_0001\)" + std::to_string(instance) +
           "\\Device Parameters|PortName";
  }
  static std::string usbserValue(const std::string& name) {
    return R"(SYSTEM\CurrentControlSet\Services\usbser\enum|)" + name;
  }
};

TEST_F(SideLists, ViatorsAreWalkedFromOneToTheFirstEmptyInstance) {
  addViator(1, u"COM4");
  addViator(2, u"COM5");
  addViator(4, u"COM6");
  EXPECT_EQ(linesOf({port("USBSER0", "COM6")}).size(), 0U);
  EXPECT_TRUE(asked(viatorKey(3)));
  EXPECT_FALSE(asked(viatorKey(4)));
}

TEST_F(SideLists, AnotherPortNameEndsTheWalkOverTheViators) {
  addViator(1, u"COM4");
  addViator(2, u"LPT1");
  addViator(3, u"COM6");
  EXPECT_EQ(linesOf({port("USBSER0", "COM6"), port("USBSER1", "COM4")}),
            Lines{u"Bluetooth Adapter (COM4)"});
  EXPECT_FALSE(asked(viatorKey(3)));
}

TEST_F(SideLists, AViatorsPortNameMayHoldComInAnyCaseAndPlace) {
  addViator(1, u"xcom4");
  addViator(2, u"COM5");
  EXPECT_EQ(linesOf({port("USBSER0", "COM5")}), Lines{u"Bluetooth Adapter (COM5)"});
}

TEST_F(SideLists, TenViatorsFit) {
  for (int n = 1; n <= 10; ++n) {
    addViator(n, u"COM" + decimalText(n));
  }
  EXPECT_EQ(linesOf({port("USBSER0", "COM1")}), Lines{u"Bluetooth Adapter (COM1)"});
}

TEST_F(SideLists, InstancesOfUsbserAreReadFromZeroToOneBelowTheCount) {
  setUsbserCount(std::int64_t{2});
  enumerate();
  EXPECT_TRUE(asked(usbserValue("0")));
  EXPECT_TRUE(asked(usbserValue("1")));
  EXPECT_FALSE(asked(usbserValue("2")));
}

TEST_F(SideLists, TheCountMayBeText) {
  setUsbserCount(std::u16string(u"1"));
  addUsbser(0, u"USB\\VID_09D8&PID_0420\\A1", u"COM9");
  EXPECT_EQ(linesOf({port("USBSER0", "COM9")}), Lines{u"TWN4 NFC-Adapter (COM9)"});
}

TEST_F(SideLists, OnlyTwn4DevicesAreLookedUp) {
  setUsbserCount(std::int64_t{3});
  addUsbser(0, u"USB\\VID_1234&PID_0420\\A1", u"COM9");
  addUsbser(2, u"usb\\vid_09d8&pid_0420\\a3", u"COM8");
  EXPECT_EQ(linesOf({port("USBSER0", "COM9"), port("USBSER1", "COM8")}),
            Lines{u"TWN4 NFC-Adapter (COM8)"});
  EXPECT_FALSE(
      asked("SYSTEM\\CurrentControlSet\\Enum\\USB\\VID_1234&PID_0420\\A1"
            "\\Device Parameters|PortName"));
}

TEST_F(SideLists, WithoutACountAnEmptyPathIsLookedUpOnce) {
  EXPECT_TRUE(linesOf({port("USBSER0", "COM9")}).empty());
  EXPECT_EQ(std::count(log.begin(), log.end(),
                       "get SYSTEM\\CurrentControlSet\\Enum\\\\Device Parameters|PortName"),
            1);
}

TEST_F(SideLists, ACountOfZeroOrLessReadsNoInstanceAndLooksUpAnEmptyPath) {
  for (const std::int64_t count : {0, -3}) {
    log.clear();
    setUsbserCount(count);
    EXPECT_TRUE(linesOf({port("USBSER0", "COM9")}).empty());
    EXPECT_FALSE(asked(usbserValue("0")));
    EXPECT_TRUE(asked("SYSTEM\\CurrentControlSet\\Enum\\\\Device Parameters|PortName"));
  }
}

TEST_F(SideLists, ACountWithoutAnyTwn4LooksUpNothing) {
  setUsbserCount(std::int64_t{1});
  addUsbser(0, u"USB\\VID_1234&PID_0001\\A1", u"COM9");
  EXPECT_TRUE(linesOf({port("USBSER0", "COM9")}).empty());
  EXPECT_FALSE(asked("SYSTEM\\CurrentControlSet\\Enum\\\\Device Parameters|PortName"));
}

TEST_F(SideLists, ElevenTwn4ReadersFit) {
  setUsbserCount(std::int64_t{11});
  for (int j = 0; j < 11; ++j) {
    addUsbser(j, u"USB\\VID_09D8&PID_0420\\" + decimalText(j), u"COM" + decimalText(20 + j));
  }
  EXPECT_EQ(linesOf({port("USBSER0", "COM30")}), Lines{u"TWN4 NFC-Adapter (COM30)"});
}

TEST_F(SideLists, SideListsAreRebuiltByEachEnumeration) {
  addViator(1, u"COM4");
  (void)linesOf({port("USBSER0", "COM4")});
  registry.values.clear();
  EXPECT_TRUE(linesOf({port("USBSER0", "COM4")}).empty());
}

}  // namespace
}  // namespace tessara
