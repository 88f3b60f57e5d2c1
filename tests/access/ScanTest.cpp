#include <gmock/gmock.h>

#include "ControlFixture.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A control whose module has been read; the log starts with the first tick.
class Scan : public ControlFixture {
 protected:
  Scan() {
    control.AutomaticConnection();
    log.clear();
  }
  [[nodiscard]] std::vector<std::string> story() const {
    return log.only({"ModulActive", "StatusChange", "Connect", "Read", "CMD48", "Close", "yield",
                     "sleep", "NFCReader"});
  }
  void tick() { platform.loop.tick(); }
  void fail() {
    platform.device.before = [](const std::string& entry) {
      if (entry.starts_with("ReadInput") || entry == "CMD48") {
        throw std::runtime_error("no answer");
      }
    };
  }
  [[nodiscard]] const Panel& panel() const { return inside(control).panel; }
};

TEST_F(Scan, AGoodPassReadsTheStatusWordsWithItsTurnsAndReportsNoEnd) {
  tick();
  EXPECT_THAT(
      log.entries(),
      ElementsAre("ModulActive(4)", "yield", "ConnectWithSerialDevice(3, 19200)", "yield",
                  "ReadInputRegisters(192, 60, 1, 2)", "ReadInputRegisters(192, 64, 1, 2)",
                  "StatusChange()", "yield", "ImageDevState.picture=2", "ImageDevState.picture=1",
                  "LblModulState.caption=0 -> Kein Fehler",
                  "LblModulState.toolTipTitle=Modul Status",
                  "LblModulState.toolTipText=0 -> Kein Fehler", "ReadInputRegisters(192, 61, 1, 2)",
                  "yield", "ReadInputRegisters(192, 63, 1, 2)", "yield",
                  "LblChnState.caption=80 -> Kein Fehler", "LblChnState.toolTipTitle=Kanal Status",
                  "LblChnState.toolTipText=80 -> Kein Fehler", "ImageDevState.visible=true",
                  "CloseSerialConnection"));
  EXPECT_FALSE(inside(control).DeviceConnected);
  EXPECT_TRUE(platform.loop.timerEnabled);
}

TEST_F(Scan, TheErrorWordIsReadOnceWithoutDelay) {
  platform.device.registers[60] = {0x0002};
  tick();
  EXPECT_EQ(log.count("ReadInputRegisters(192, 62, 1, 2)"), 1U);
  EXPECT_EQ(log.count("sleep"), 0U);
  EXPECT_EQ(panel().LblModulState.caption(),
            u"11 -> Fehler Versorgungsspg. Mess-System -> Fehler RAM Mess-System");
  EXPECT_EQ(panel().ImageDevState.state().picture, PictureSource{2});
}

TEST_F(Scan, UsbPowerIsNotShownOnAnNfcReader) {
  platform.device.registers[64] = {0x1000};
  tick();
  EXPECT_EQ(panel().LblModulState.caption(), u"USB-Power; 0 -> Kein Fehler");
  inside(control).bNFCReader = true;
  tick();
  EXPECT_EQ(panel().LblModulState.caption(), u"NFC");
}

TEST_F(Scan, ReadsTheStatusAtAnyAddress) {
  inside(control).panel.txtDevAddr.type(u"17");
  control.AutomaticConnection();
  EXPECT_EQ(panel().LblModulState.caption(), u"");
  log.clear();
  tick();
  EXPECT_EQ(log.count("ReadInputRegisters(17, 60, 1, 2)"), 1U);
  EXPECT_EQ(panel().LblModulState.caption(), u"0 -> Kein Fehler");
}

TEST_F(Scan, TicksDoNothingWhileTheHostIsBusyOrAConnectionIsOpen) {
  control.put_DeviceActive(4);
  log.clear();
  tick();
  EXPECT_THAT(log.entries(), IsEmpty());
  control.put_DeviceActive(0);
  log.clear();
  tick();
  EXPECT_EQ(log.count("ModulActive(4)"), 1U);
  control.put_DeviceConnected(1);
  log.clear();
  tick();
  EXPECT_THAT(log.entries(), IsEmpty());
}

TEST_F(Scan, AMissingPortStopsTheScanSilently) {
  platform.device.connects = false;
  tick();
  EXPECT_THAT(log.entries(),
              ElementsAre("ModulActive(4)", "yield", "ConnectWithSerialDevice(3, 19200)", "yield",
                          "CloseSerialConnection", "TimerScanDevice.enabled=false"));
  EXPECT_FALSE(inside(control).ScanEnabled);
  EXPECT_EQ(inside(control).ScanErrorCount, 0);
  EXPECT_EQ(inside(control).StatusString, u"");
  EXPECT_TRUE(inside(control).bDataValid);
}

TEST_F(Scan, AFailedPassCountsAndTheScanContinues) {
  fail();
  tick();
  EXPECT_THAT(story(), ElementsAre("ModulActive(4)", "yield", "ConnectWithSerialDevice(3, 19200)",
                                   "yield", "ReadInputRegisters(192, 60, 1, 2)", "yield",
                                   "CloseSerialConnection", "ModulActive(0)"));
  EXPECT_EQ(inside(control).ScanErrorCount, 1);
  EXPECT_TRUE(platform.loop.timerEnabled);
  EXPECT_EQ(panel().LblModulState.caption(), u"0 -> Kein Fehler");
  EXPECT_TRUE(inside(control).bDataValid);
}

TEST_F(Scan, TheEleventhFailureOfAControlGoesOffline) {
  fail();
  for (int pass = 0; pass < 10; ++pass) {
    tick();
  }
  EXPECT_TRUE(platform.loop.timerEnabled);
  platform.device.before = [](const std::string&) {};
  tick();
  EXPECT_EQ(inside(control).ScanErrorCount, 10);
  fail();
  tick();
  EXPECT_EQ(inside(control).ScanErrorCount, 11);
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_FALSE(inside(control).ScanEnabled);
  EXPECT_EQ(inside(control).StatusString, u"Offline");
  EXPECT_EQ(log.count("ModulActive(0)"), 11U);
  EXPECT_EQ(log.count("ModulActive(4)"), 12U);
  EXPECT_EQ(log.count("StatusChange(Offline)"), 1U);
  EXPECT_EQ(log.entries().back(), "StatusChange(Offline)");
  EXPECT_TRUE(inside(control).bDataValid);
  EXPECT_EQ(panel().LblVendorID.caption(), u"49");
}

TEST_F(Scan, AfterOfflineAReadRestartsTheScanAndTheNextFailureStopsItAgain) {
  inside(control).ScanErrorCount = 11;
  control.AutomaticConnection();
  EXPECT_TRUE(platform.loop.timerEnabled);
  fail();
  tick();
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_EQ(inside(control).ScanErrorCount, 12);
  EXPECT_EQ(inside(control).StatusString, u"Offline");
}

TEST_F(Scan, TheCounterStaysAtItsLargestValue) {
  inside(control).ScanErrorCount = 32767;
  fail();
  tick();
  EXPECT_EQ(inside(control).ScanErrorCount, 32767);
}

TEST_F(Scan, AFailureLeavesWhatThePassHadWritten) {
  platform.device.registers[60] = {0x0004};
  platform.device.before = [](const std::string& entry) {
    if (entry == "ReadInputRegisters(192, 63, 1, 2)") {
      throw std::runtime_error("no answer");
    }
  };
  inside(control).panel.LblChnState.setCaption(u"old");
  tick();
  EXPECT_EQ(panel().LblModulState.caption(), u"4 -> Simulation");
  EXPECT_EQ(panel().LblChnState.caption(), u"old");
  EXPECT_EQ(panel().ImageDevState.state().picture, PictureSource{2});
}

class HartScan : public Scan {
 protected:
  HartScan() {
    inside(control).VendorID = 176;
    platform.device.cmd48Reply[0] = 5;
    platform.device.cmd48Reply[1] = 9;
  }
};

TEST_F(HartScan, SendsTheStatusCommandOnly) {
  tick();
  EXPECT_THAT(log.entries(),
              ElementsAre("ModulActive(4)", "yield", "ConnectWithSerialDevice(3, 19200)", "yield",
                          "yield", "CMD48", "StatusChange()", "yield", "ImageDevState.picture=2",
                          "LblModulState.caption=9", "LblModulState.toolTipTitle=Modul Status",
                          "LblModulState.toolTipText=9", "LblChnState.caption=5",
                          "LblChnState.toolTipTitle=Kanal Status", "LblChnState.toolTipText=5",
                          "ImageDevState.visible=true", "CloseSerialConnection"));
}

TEST_F(HartScan, AZeroStatusByteIsGood) {
  platform.device.cmd48Reply[1] = 0;
  tick();
  EXPECT_EQ(panel().LblModulState.caption(), u"0 -> Kein Fehler");
  EXPECT_EQ(panel().ImageDevState.state().picture, PictureSource{1});
}

TEST_F(HartScan, NoReplyCountsAsGoodWithoutANumber) {
  platform.device.cmd48Count = 0;
  platform.device.cmd48Reply[1] = 0;
  tick();
  EXPECT_EQ(panel().LblModulState.caption(), u" -> Kein Fehler");
  EXPECT_EQ(panel().LblModulState.state().toolTipText, u" -> Kein Fehler");
  EXPECT_EQ(panel().LblChnState.caption(), u"");
  EXPECT_EQ(panel().ImageDevState.state().picture, PictureSource{1});
}

TEST_F(HartScan, ACommandThatThrowsIsAFailedPass) {
  fail();
  tick();
  EXPECT_EQ(inside(control).ScanErrorCount, 1);
  EXPECT_EQ(log.entries().back(), "ModulActive(0)");
}

}  // namespace
}  // namespace tessara::testing
