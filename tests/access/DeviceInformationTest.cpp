#include <gmock/gmock.h>

#include "ControlFixture.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DeviceInformation : public ControlFixture {
 protected:
  DeviceInformation() {
    inside(control).DevAddr = 7;
    inside(control).ScanEnabled = true;
    inside(control).bDataValid = true;
    platform.loop.timerEnabled = true;
  }
  [[nodiscard]] std::vector<std::string> story() const {
    return log.only({"ModulActive", "StatusChange", "Connect", "Read", "CMD48", "Close", "yield"});
  }
};

TEST_F(DeviceInformation, ConnectsReadsTheRecordAndCloses) {
  platform.device.identifier = {1, 2, 3, 4, 99};
  control.GetDeviceInformation();
  EXPECT_THAT(story(), ElementsAre("ModulActive(1)", "ConnectWithSerialDevice(3, 19200)",
                                   "StatusChange(Lese Daten)", "ReadDeviceIdentifier(7)",
                                   "CloseSerialConnection", "ModulActive(0)"));
  EXPECT_EQ(inside(control).VendorID, 1);
  EXPECT_EQ(inside(control).GroupID, 2);
  EXPECT_EQ(control.get_FamilyID(), 3);
  EXPECT_EQ(control.get_DeviceID(), 4);
  EXPECT_FALSE(inside(control).DeviceConnected);
  EXPECT_EQ(inside(control).StatusString, u"Lese Daten");
}

TEST_F(DeviceInformation, LeavesTheLabelsAndTheTimer) {
  inside(control).panel.LblFamilyID.setCaption(u"16");
  log.clear();
  control.GetDeviceInformation();
  EXPECT_EQ(inside(control).panel.LblFamilyID.caption(), u"16");
  EXPECT_THAT(log.only({"Lbl", "Label", "Timer"}), IsEmpty());
  EXPECT_TRUE(platform.loop.timerEnabled);
  EXPECT_TRUE(inside(control).bDataValid);
}

TEST_F(DeviceInformation, APortThatCannotBeOpenedClosesOnceAndRaisesThree) {
  platform.device.connects = false;
  control.GetDeviceInformation();
  EXPECT_THAT(story(), ElementsAre("ModulActive(1)", "ConnectWithSerialDevice(3, 19200)",
                                   "StatusChange(Lese Daten)", "StatusChange(Fehler Verbindung!)",
                                   "CloseSerialConnection", "ModulActive(3)"));
  EXPECT_TRUE(platform.loop.timerEnabled);
  EXPECT_TRUE(inside(control).ScanEnabled);
  EXPECT_EQ(inside(control).StatusString, u"Fehler Verbindung!");
}

TEST_F(DeviceInformation, AModuleThatThrowsRaisesZeroAndStopsTheScan) {
  platform.device.before = [](const std::string& entry) {
    if (entry.starts_with("ReadDeviceIdentifier")) {
      throw std::runtime_error("no answer");
    }
  };
  control.GetDeviceInformation();
  EXPECT_THAT(story(), ElementsAre("ModulActive(1)", "ConnectWithSerialDevice(3, 19200)",
                                   "StatusChange(Lese Daten)", "ReadDeviceIdentifier(7)",
                                   "StatusChange(Fehler Verbindung!)", "CloseSerialConnection",
                                   "ModulActive(0)"));
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_FALSE(inside(control).ScanEnabled);
  EXPECT_FALSE(inside(control).DeviceConnected);
  EXPECT_TRUE(inside(control).bDataValid);
}

TEST_F(DeviceInformation, AnElementOutsideTheRangeOfAWordTakesTheExceptionEnd) {
  platform.device.identifier = {1, 2, 40000, 4};
  control.GetDeviceInformation();
  EXPECT_EQ(log.entries().back(), "ModulActive(0)");
  EXPECT_EQ(inside(control).StatusString, u"Fehler Verbindung!");
  EXPECT_FALSE(inside(control).ScanEnabled);
}

TEST_F(DeviceInformation, ARecordThatIsTooShortTakesTheExceptionEnd) {
  platform.device.identifier = {1, 2, 3};
  control.GetDeviceInformation();
  EXPECT_EQ(inside(control).StatusString, u"Fehler Verbindung!");
}

TEST_F(DeviceInformation, WaitsForTheConnectionToCloseBeforeItConnects) {
  inside(control).DeviceConnected = true;
  int turns = 0;
  platform.loop.onYield = [&] { inside(control).DeviceConnected = ++turns < 3; };
  control.GetDeviceInformation();
  EXPECT_THAT(story(),
              ElementsAre("ModulActive(1)", "yield", "yield", "yield",
                          "ConnectWithSerialDevice(3, 19200)", "StatusChange(Lese Daten)",
                          "ReadDeviceIdentifier(7)", "CloseSerialConnection", "ModulActive(0)"));
}

TEST_F(DeviceInformation, WithoutASelectedObjectTheConnectionFails) {
  inside(control).CommObject.reset();
  control.GetDeviceInformation();
  EXPECT_THAT(story(), ElementsAre("ModulActive(1)", "StatusChange(Lese Daten)",
                                   "StatusChange(Fehler Verbindung!)", "ModulActive(3)"));
}

TEST_F(DeviceInformation, AnErrorOfTheCloseInTheExceptionEndIsStillReported) {
  platform.device.before = [](const std::string& entry) {
    if (!entry.starts_with("Connect")) {
      throw std::runtime_error("the port has gone");
    }
  };
  control.GetDeviceInformation();
  EXPECT_EQ(log.entries().back(), "ModulActive(0)");
  EXPECT_FALSE(inside(control).DeviceConnected);
}

}  // namespace
}  // namespace tessara::testing
