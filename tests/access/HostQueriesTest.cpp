#include <gmock/gmock.h>

#include "ControlFixture.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HostQueries : public ControlFixture {
 protected:
  HostQueries() {
    control.AutomaticConnection();
    inside(control).DevAddr = 7;
    log.clear();
  }
  [[nodiscard]] std::vector<std::string> story() const {
    return log.only({"ModulActive", "StatusChange", "Connect", "Read", "CMD48", "Close", "yield",
                     "sleep", "Timer", "Show", "SetConfiguration"});
  }
  void failAt(const std::string& beginning) {
    platform.device.before = [beginning](const std::string& entry) {
      if (entry.starts_with(beginning)) {
        throw std::runtime_error("no answer");
      }
    };
  }
};

TEST_F(HostQueries, CheckDeviceTypeComparesWithoutChangingTheFields) {
  inside(control).GroupID = 99;
  inside(control).VendorID = 98;
  EXPECT_EQ(control.get_CheckDeviceType(), 1);
  EXPECT_THAT(story(), ElementsAre("TimerScanDevice.enabled=false", "ModulActive(1)",
                                   "ConnectWithSerialDevice(3, 19200)", "StatusChange(Lese Daten)",
                                   "ReadDeviceIdentifier(7)", "ReadInputRegisters(7, 4, 1, 2)",
                                   "CloseSerialConnection", "ModulActive(0)",
                                   "TimerScanDevice.enabled=true"));
  EXPECT_EQ(inside(control).GroupID, 99);
  EXPECT_EQ(inside(control).StatusString, u"Lese Daten");
  EXPECT_TRUE(platform.loop.timerEnabled);
  EXPECT_TRUE(inside(control).ScanEnabled);
}

TEST_F(HostQueries, AnotherFamilyDeviceOrFirmwareDiffers) {
  inside(control).FamilyID = 15;
  EXPECT_EQ(control.get_CheckDeviceType(), 0);
  inside(control).FamilyID = 16;
  inside(control).DeviceID = 1;
  EXPECT_EQ(control.get_CheckDeviceType(), 0);
  inside(control).DeviceID = 161;
  control.put_FirmwareVers(1.235);
  EXPECT_EQ(control.get_CheckDeviceType(), 0);
  for (const double same : {1.234, 1.2344, 1.2336}) {
    control.put_FirmwareVers(same);
    EXPECT_EQ(control.get_CheckDeviceType(), 1) << same;
  }
  EXPECT_TRUE(platform.loop.timerEnabled);
}

TEST_F(HostQueries, EveryVersionComparesEqualToItself) {
  for (std::int32_t n = 0; n < 10000; n += 7) {
    const std::int32_t word = (n / 1000 << 12) | (n / 100 % 10 << 8) | (n / 10 % 10 << 4) | n % 10;
    platform.device.registers[4] = {word};
    control.GetFWVersion();
    EXPECT_EQ(control.get_CheckDeviceType(), 1) << n;
  }
}

TEST_F(HostQueries, CheckDeviceTypeLeavesAStoppedTimerStopped) {
  inside(control).panel.CmdOfflineConfigure.press();
  EXPECT_EQ(control.get_CheckDeviceType(), 1);
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_FALSE(inside(control).ScanEnabled);
}

TEST_F(HostQueries, CheckDeviceTypeOnAClosedPortIsZeroAndLeavesTheTimerOff) {
  platform.device.connects = false;
  EXPECT_EQ(control.get_CheckDeviceType(), 0);
  EXPECT_THAT(story(), ElementsAre("TimerScanDevice.enabled=false", "ModulActive(1)",
                                   "ConnectWithSerialDevice(3, 19200)", "StatusChange(Lese Daten)",
                                   "StatusChange(Fehler Verbindung!)", "CloseSerialConnection",
                                   "ModulActive(3)"));
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_TRUE(inside(control).ScanEnabled);
}

TEST_F(HostQueries, ACheckThatThrowsIsThreeAndStopsTheScan) {
  failAt("ReadInputRegisters");
  EXPECT_EQ(control.get_CheckDeviceType(), 3);
  EXPECT_EQ(log.entries().back(), "ModulActive(3)");
  EXPECT_EQ(inside(control).StatusString, u"Fehler Verbindung!");
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_FALSE(inside(control).ScanEnabled);
  EXPECT_FALSE(inside(control).DeviceConnected);
}

TEST_F(HostQueries, BeforeAnyReadTheAddressIsZero) {
  inside(control).DevAddr = 0;
  inside(control).FamilyID = inside(control).DeviceID = 0;
  EXPECT_EQ(control.get_CheckDeviceType(), 0);
  EXPECT_EQ(log.count("ReadDeviceIdentifier(0)"), 1U);
}

TEST_F(HostQueries, GetFWVersionFillsFieldsAndLabel) {
  platform.device.registers[4] = {0x2500};
  control.GetFWVersion();
  EXPECT_THAT(story(), ElementsAre("ModulActive(1)", "ConnectWithSerialDevice(3, 19200)",
                                   "StatusChange(Lese Daten)", "ReadInputRegisters(7, 4, 1, 2)",
                                   "CloseSerialConnection", "ModulActive(0)"));
  EXPECT_EQ(inside(control).FirmwareVers, 2.5F);
  EXPECT_EQ(inside(control).FwVersion, u"2.500");
  EXPECT_EQ(inside(control).panel.LblFwVersion.caption(), u"2.500");
  EXPECT_EQ(inside(control).StatusString, u"Lese Daten");
  EXPECT_TRUE(inside(control).bDataValid);
}

TEST_F(HostQueries, GetFWVersionWaitsForTheConnectionToClose) {
  inside(control).DeviceConnected = true;
  int turns = 0;
  platform.loop.onYield = [&] { inside(control).DeviceConnected = ++turns < 5; };
  control.GetFWVersion();
  EXPECT_EQ(log.count("yield"), 5U);
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 1U);
}

TEST_F(HostQueries, GetFWVersionThatThrowsIsZeroForTheHostAndStopsTheScan) {
  failAt("ReadInputRegisters");
  control.GetFWVersion();
  EXPECT_THAT(log.only({"ModulActive"}), ElementsAre("ModulActive(1)", "ModulActive(0)"));
  EXPECT_EQ(inside(control).StatusString, u"Fehler Verbindung!");
  EXPECT_FALSE(inside(control).ScanEnabled);
}

TEST_F(HostQueries, GetFWVersionOnAClosedPortIsThreeAndLeavesTheTimer) {
  platform.device.connects = false;
  control.GetFWVersion();
  EXPECT_THAT(log.only({"ModulActive", "Close"}),
              ElementsAre("ModulActive(1)", "CloseSerialConnection", "ModulActive(3)"));
  EXPECT_TRUE(platform.loop.timerEnabled);
}

TEST_F(HostQueries, GetDeviceStatusTakesOneTurnAndShowsTheStatus) {
  control.GetDeviceStatus();
  EXPECT_THAT(
      log.entries(),
      ElementsAre("ModulActive(1)", "yield", "ConnectWithSerialDevice(3, 19200)",
                  "StatusChange(Lese Daten)", "ReadInputRegisters(7, 60, 1, 2)",
                  "ReadInputRegisters(7, 64, 1, 2)", "StatusChange()", "ImageDevState.picture=2",
                  "ImageDevState.picture=1", "LblModulState.caption=0 -> Kein Fehler",
                  "LblModulState.toolTipTitle=Modul Status",
                  "LblModulState.toolTipText=0 -> Kein Fehler", "ReadInputRegisters(7, 61, 1, 2)",
                  "ReadInputRegisters(7, 63, 1, 2)", "LblChnState.caption=80 -> Kein Fehler",
                  "LblChnState.toolTipTitle=Kanal Status",
                  "LblChnState.toolTipText=80 -> Kein Fehler", "ImageDevState.visible=true",
                  "CloseSerialConnection", "ModulActive(0)"));
  EXPECT_TRUE(platform.loop.timerEnabled);
}

TEST_F(HostQueries, GetDeviceStatusDoesNotWaitForAnOpenConnection) {
  inside(control).DeviceConnected = true;
  control.GetDeviceStatus();
  EXPECT_EQ(log.count("yield"), 1U);
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 1U);
}

TEST_F(HostQueries, GetDeviceStatusReadsTheErrorWordOnceAndHidesUsbPowerOnNfc) {
  platform.device.registers[60] = {0x0002};
  platform.device.registers[64] = {0x1000};
  control.GetDeviceStatus();
  EXPECT_EQ(log.count("ReadInputRegisters(7, 62, 1, 2)"), 1U);
  EXPECT_EQ(log.count("sleep"), 0U);
  EXPECT_TRUE(inside(control).panel.LblModulState.caption().starts_with(u"USB-Power; 11 -> "));
  inside(control).bNFCReader = true;
  control.GetDeviceStatus();
  EXPECT_TRUE(inside(control).panel.LblModulState.caption().starts_with(u"11 -> "));
  EXPECT_EQ(inside(control).panel.LblChnState.caption(), u"NFC");
}

TEST_F(HostQueries, GetDeviceStatusReadsTheRegistersEvenOfHartModules) {
  inside(control).VendorID = 176;
  control.GetDeviceStatus();
  EXPECT_EQ(log.count("CMD48"), 0U);
  EXPECT_EQ(log.count("ReadInputRegisters(7, 60, 1, 2)"), 1U);
}

TEST_F(HostQueries, GetDeviceStatusBeforeAnyMatchReadsRegisterZero) {
  static_cast<DeviceProfile&>(inside(control)) = {};
  platform.device.registers[0] = {0x0002};
  control.GetDeviceStatus();
  EXPECT_EQ(log.count("ReadInputRegisters(7, 0, 1, 2)"), 5U);
}

TEST_F(HostQueries, GetDeviceStatusThatThrowsIsThreeAndLeavesTheTimer) {
  failAt("ReadInputRegisters");
  control.GetDeviceStatus();
  EXPECT_THAT(story(), ElementsAre("ModulActive(1)", "yield", "ConnectWithSerialDevice(3, 19200)",
                                   "StatusChange(Lese Daten)", "ReadInputRegisters(7, 60, 1, 2)",
                                   "StatusChange(Fehler Verbindung!)", "CloseSerialConnection",
                                   "ModulActive(3)"));
  EXPECT_TRUE(platform.loop.timerEnabled);
  EXPECT_TRUE(inside(control).ScanEnabled);
}

TEST_F(HostQueries, GetDeviceStatusIsGuardedOnlyAfterItsTurn) {
  platform.loop.onYield = [] { throw std::runtime_error("an event is upset"); };
  EXPECT_THROW(control.GetDeviceStatus(), std::runtime_error);
  EXPECT_THAT(story(), ElementsAre("ModulActive(1)", "yield"));
}

TEST_F(HostQueries, GetDeviceStatusOnAClosedPortClosesAndIsThree) {
  platform.device.connects = false;
  control.GetDeviceStatus();
  EXPECT_THAT(log.only({"ModulActive", "Close"}),
              ElementsAre("ModulActive(1)", "CloseSerialConnection", "ModulActive(3)"));
}

TEST_F(HostQueries, NoQueryReadsTheAddressBox) {
  inside(control).panel.txtDevAddr.type(u"abc");
  log.clear();
  EXPECT_EQ(control.get_CheckDeviceType(), 1);
  control.GetFWVersion();
  control.GetDeviceInformation();
  control.GetDeviceStatus();
  EXPECT_EQ(log.count("StatusChange(Fehler Verbindung!)"), 0U);
}

TEST_F(HostQueries, AFailedQueryKeepsTheDataValid) {
  failAt("Read");
  (void)control.get_CheckDeviceType();
  control.GetFWVersion();
  control.GetDeviceInformation();
  control.GetDeviceStatus();
  EXPECT_TRUE(inside(control).bDataValid);
}

class StoreButton : public HostQueries {
 protected:
  StoreButton() {
    control.UnLockCmdStore();
    log.clear();
  }
  void press() { inside(control).panel.CmdStoreParameter.press(); }
};

TEST_F(StoreButton, AModuleThatMatchesRaisesSetConfiguration) {
  press();
  EXPECT_EQ(log.count("SetConfiguration"), 1U);
  EXPECT_THAT(log.only({"Show"}), IsEmpty());
}

TEST_F(StoreButton, AnotherModuleShowsAMessage) {
  inside(control).DeviceID = 1;
  platform.messageAnswer = 4;
  press();
  EXPECT_THAT(log.only({"Show", "SetConfiguration"}),
              ElementsAre("Show 16 MERIDEX_CONF: Falscher Modultyp!"));
  EXPECT_EQ(inside(control).lMsgResult, 4);
}

TEST_F(StoreButton, WithoutAModuleTheSameMessageFollowsTheFailureTexts) {
  platform.device.connects = false;
  press();
  EXPECT_THAT(log.only({"StatusChange", "Show", "SetConfiguration"}),
              ElementsAre("StatusChange(Lese Daten)", "StatusChange(Fehler Verbindung!)",
                          "Show 16 MERIDEX_CONF: Falscher Modultyp!"));
}

TEST_F(StoreButton, AFailedQueryShowsNothingMore) {
  failAt("Read");
  press();
  EXPECT_THAT(log.only({"Show", "SetConfiguration"}), IsEmpty());
}

/// How each access of the host ends, cell by cell.
struct Column {
  const char* name;
  void (*run)(ModulInfoFLII&);
  bool waits;
  bool timerSavedAndDisabled;
  const char16_t* statusAfterSuccess;
  const char* exceptionEvent;
  bool timerAfterException;
};

class Columns : public HostQueries, public ::testing::WithParamInterface<Column> {};

TEST_P(Columns, WaitForTheConnection) {
  inside(control).DeviceConnected = true;
  int turns = 0;
  platform.loop.onYield = [&] { inside(control).DeviceConnected = ++turns < 3; };
  GetParam().run(control);
  EXPECT_EQ(turns >= 3, GetParam().waits);
}

TEST_P(Columns, TimerAtTheStart) {
  bool timer = true;
  platform.device.before = [&](const std::string&) { timer = platform.loop.timerEnabled; };
  GetParam().run(control);
  EXPECT_EQ(timer, !GetParam().timerSavedAndDisabled);
  EXPECT_TRUE(platform.loop.timerEnabled);
}

TEST_P(Columns, StatusTexts) {
  GetParam().run(control);
  EXPECT_EQ(log.only({"StatusChange"}).front(), "StatusChange(Lese Daten)");
  EXPECT_EQ(inside(control).StatusString, GetParam().statusAfterSuccess);
}

TEST_P(Columns, NoRetryAndNoHartPath) {
  inside(control).VendorID = 176;
  failAt("Read");
  GetParam().run(control);
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 1U);
  EXPECT_EQ(log.count("CMD48"), 0U);
  EXPECT_EQ(inside(control).Baudrate, 19200);
}

TEST_P(Columns, ClosesAfterAFailedConnect) {
  platform.device.connects = false;
  GetParam().run(control);
  EXPECT_EQ(log.count("CloseSerialConnection"), 1U);
  EXPECT_EQ(log.only({"ModulActive"}).back(), "ModulActive(3)");
}

TEST_P(Columns, ExceptionEnd) {
  failAt("Read");
  GetParam().run(control);
  EXPECT_EQ(log.only({"ModulActive"}).back(), GetParam().exceptionEvent);
  EXPECT_EQ(platform.loop.timerEnabled, GetParam().timerAfterException);
  EXPECT_FALSE(inside(control).DeviceConnected);
}

INSTANTIATE_TEST_SUITE_P(
    Accesses, Columns,
    ::testing::Values(Column{"CheckDeviceType",
                             [](ModulInfoFLII& c) { (void)c.get_CheckDeviceType(); }, false, true,
                             u"Lese Daten", "ModulActive(3)", false},
                      Column{"GetFWVersion", [](ModulInfoFLII& c) { c.GetFWVersion(); }, true,
                             false, u"Lese Daten", "ModulActive(0)", false},
                      Column{"GetDeviceInformation",
                             [](ModulInfoFLII& c) { c.GetDeviceInformation(); }, true, false,
                             u"Lese Daten", "ModulActive(0)", false},
                      Column{"GetDeviceStatus", [](ModulInfoFLII& c) { c.GetDeviceStatus(); },
                             false, false, u"", "ModulActive(3)", true}),
    [](const auto& column) { return std::string(column.param.name); });

}  // namespace
}  // namespace tessara::testing
