#include <gmock/gmock.h>

#include "ControlFixture.h"
#include "FakeCatalogue.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

const std::vector<std::string> accessEntries{"ModulActive", "StatusChange", "Connect",
                                             "Read",        "CMD48",        "Close",
                                             "yield",       "sleep",        "NFCReader"};

class ReadWorkflow : public ControlFixture {
 protected:
  [[nodiscard]] std::vector<std::string> story() const { return log.only(accessEntries); }
  [[nodiscard]] std::vector<std::string> deviceCalls() const {
    return log.only({"Connect", "Read", "CMD48", "Close", "sleep"});
  }
  void read() { inside(control).panel.CmdDeviceInfo.press(); }
  [[nodiscard]] const Panel& panel() const { return inside(control).panel; }
};

TEST_F(ReadWorkflow, AHealthyModuleIsReadStepByStep) {
  read();
  EXPECT_THAT(
      log.entries(),
      ElementsAre(
          "TimerScanDevice.enabled=false", "CmdDeviceInfo.enabled=false",
          "CmdDeviceInfo.picture=Upload", "CmdStoreParameter.enabled=false",
          "CmdStoreParameter.picture=Download", "CmdOfflineConfigure.enabled=false",
          "CmdOfflineConfigure.picture=Offline", "ImageDevState.visible=false", "StatusChange()",
          "LabelDeviceName.caption=", "LabelDeviceName.refresh", "LblVendorID.caption=",
          "LblVendorID.refresh", "LblGroupID.caption=", "LblGroupID.refresh",
          "LblFamilyID.caption=", "LblFamilyID.refresh", "LblDeviceID.caption=",
          "LblDeviceID.refresh", "LblFwVersion.caption=", "LblFwVersion.refresh",
          "LabelDeviceDescription.caption=", "LabelDeviceDescription.refresh",
          "LblSerialNumber.caption=", "LblSerialNumber.refresh",
          "LblModulState.caption=", "LblModulState.refresh",
          "LblChnState.caption=", "LblChnState.refresh", "StatusChange(Verbindungsaufbau)",
          "ModulActive(1)", "yield", "ConnectWithSerialDevice(3, 19200)", "yield",
          "ReadDeviceIdentifier(192)", "LblVendorID.caption=49", "LblGroupID.caption=1",
          "LblFamilyID.caption=16", "LblDeviceID.caption=161", "ReadInputRegisters(192, 4, 1, 2)",
          "LblFwVersion.caption=1.234", "ReadInputRegisters(192, 3, 1, 2)",
          "ReadInputRegisters(192, 5, 4, 2)", "LblSerialNumber.caption=",
          "LblSerialNumber.caption=131073", "GetValue 1 Control Panel\\International\\|sDecimal",
          "GetValue 1 Control Panel\\International\\|sDecimal", "LblFwVersion.visible=true",
          "LngLabel[4].visible=true", "ReadInputRegisters(192, 16, 16, 2)",
          "LabelDeviceName.caption=ABABABABABABABABABABABABABABABAB",
          "ReadInputRegisters(192, 60, 1, 2)", "ReadInputRegisters(192, 64, 1, 2)",
          "StatusChange()", "ImageDevState.picture=2", "ImageDevState.picture=1",
          "LblModulState.caption=0 -> Kein Fehler", "LblModulState.toolTipTitle=Modul Status",
          "LblModulState.toolTipText=0 -> Kein Fehler", "ReadInputRegisters(192, 61, 1, 2)",
          "ReadInputRegisters(192, 63, 1, 2)", "LblChnState.caption=80 -> Kein Fehler",
          "LblChnState.toolTipTitle=Kanal Status", "LblChnState.toolTipText=80 -> Kein Fehler",
          "ImageDevState.visible=true", "CloseSerialConnection", "StatusChange()",
          "CmdDeviceInfo.enabled=true", "CmdDeviceInfo.picture=Upload",
          "CmdOfflineConfigure.enabled=true", "CmdOfflineConfigure.picture=Offline",
          "ModulActive(0)", "NFCReader(false)", "TimerScanDevice.enabled=true"));
}

TEST_F(ReadWorkflow, TheFieldsHoldTheRepliesOfTheModule) {
  inside(control).OfflineMode = true;
  read();
  EXPECT_EQ(inside(control).VendorID, 49);
  EXPECT_EQ(inside(control).GroupID, 1);
  EXPECT_EQ(inside(control).FamilyID, 16);
  EXPECT_EQ(inside(control).DeviceID, 161);
  EXPECT_EQ(inside(control).FirmwareVers, 1.234F);
  EXPECT_EQ(inside(control).FwVersion, u"1.234");
  EXPECT_EQ(inside(control).SecondVersion, 1.1F);
  EXPECT_EQ(inside(control).SerialNumber, Variant{std::uint64_t{131073}});
  EXPECT_EQ(inside(control).DeviceName.size(), 32U);
  EXPECT_EQ(inside(control).DevAddr, 192);
  EXPECT_EQ(inside(control).StatusWord, 0x0080);
  EXPECT_EQ(inside(control).LedWord, 0);
  EXPECT_EQ(inside(control).RegDevStatus, 60);
  EXPECT_TRUE(inside(control).bDataValid);
  EXPECT_FALSE(inside(control).OfflineMode);
  EXPECT_FALSE(inside(control).DeviceConnected);
  EXPECT_TRUE(inside(control).ScanEnabled);
  EXPECT_TRUE(platform.loop.timerEnabled);
  EXPECT_EQ(inside(control).ConnectAttempts, 0);
  EXPECT_EQ(inside(control).StatusString, u"");
  EXPECT_FALSE(panel().CmdStoreParameter.enabled());
}

TEST_F(ReadWorkflow, DataIsValidUpToTheFirstStatusChangeAndAgainAtTheEnd) {
  read();
  log.clear();
  std::vector<std::pair<std::string, std::int32_t>> seen;
  host.onCallback = [&](const std::string& entry) {
    seen.emplace_back(entry, control.get_DataValid());
  };
  read();
  EXPECT_THAT(
      seen,
      ElementsAre(Pair("StatusChange()", 1), Pair("StatusChange(Verbindungsaufbau)", 0),
                  Pair("ModulActive(1)", 0), Pair("StatusChange()", 0), Pair("StatusChange()", 1),
                  Pair("ModulActive(0)", 1), Pair("NFCReader(false)", 1)));
}

TEST_F(ReadWorkflow, StoreAndOfflineAreSavedAsDisabled) {
  inside(control).panel.CmdSave2DiskParameter.setEnabled(false);
  read();
  EXPECT_THAT(inside(control).SavedCmdEnabled,
              ElementsAre(false, false, true, false, false, false, false));
}

TEST_F(ReadWorkflow, AfterAReadHostIdleLeavesStoreAndOfflineDisabled) {
  read();
  control.put_DeviceActive(0);
  EXPECT_FALSE(panel().CmdStoreParameter.enabled());
  EXPECT_FALSE(panel().CmdOfflineConfigure.enabled());
}

TEST_F(ReadWorkflow, AutomaticConnectionReadsLikeTheButton) {
  read();
  const auto byButton = log.entries();
  log.clear();
  inside(control).panel.CmdStoreParameter.setEnabled(true);
  log.clear();
  control.AutomaticConnection();
  EXPECT_EQ(log.entries(), byButton);
}

TEST_F(ReadWorkflow, AutomaticConnectionReadsEvenWithTheButtonDisabled) {
  inside(control).panel.CmdDeviceInfo.setEnabled(false);
  control.AutomaticConnection();
  EXPECT_TRUE(inside(control).bDataValid);
}

TEST_F(ReadWorkflow, WithoutAnyReaderAutomaticConnectionOnlyRaisesSix) {
  inside(control).ReaderMissing = true;
  control.AutomaticConnection();
  EXPECT_THAT(log.entries(), ElementsAre("ModulActive(6)"));
}

TEST_F(ReadWorkflow, TheErrorWordIsReadTwiceWithTwoDelaysAndTheSecondCounts) {
  platform.device.registers[60] = {0x0002};
  int reads = 0;
  platform.device.before = [&](const std::string& entry) {
    if (entry == "ReadInputRegisters(192, 62, 1, 2)" && ++reads == 2) {
      platform.device.registers[62] = {0x0010};
    }
  };
  read();
  EXPECT_THAT(log.only({"sleep", "ReadInputRegisters(192, 6"}),
              ElementsAre("ReadInputRegisters(192, 60, 1, 2)", "ReadInputRegisters(192, 64, 1, 2)",
                          "sleep 100", "ReadInputRegisters(192, 62, 1, 2)", "sleep 100",
                          "ReadInputRegisters(192, 62, 1, 2)", "ReadInputRegisters(192, 61, 1, 2)",
                          "ReadInputRegisters(192, 63, 1, 2)"));
  EXPECT_EQ(panel().LblModulState.caption(), u"10 -> Fehler RAM Mess-System");
  EXPECT_EQ(panel().ImageDevState.state().picture, PictureSource{2});
}

TEST_F(ReadWorkflow, AModuleWithAStatusBitShowsPictureTwo) {
  platform.device.registers[60] = {0x0004};
  read();
  EXPECT_EQ(panel().LblModulState.caption(), u"4 -> Simulation");
  EXPECT_EQ(panel().ImageDevState.state().picture, PictureSource{2});
  EXPECT_TRUE(panel().ImageDevState.visible());
}

TEST_F(ReadWorkflow, UsbPowerIsShownInFrontEvenOnAnNfcReader) {
  platform.device.registers[64] = {0x1000};
  read();
  EXPECT_EQ(panel().LblModulState.caption(), u"USB-Power; 0 -> Kein Fehler");
  inside(control).bNFCReader = true;
  read();
  EXPECT_EQ(panel().LblModulState.caption(), u"USB-Power; NFC");
  EXPECT_EQ(panel().LblModulState.state().toolTipText, u"USB-Power; NFC");
  EXPECT_EQ(log.count("NFCReader(true)"), 1U);
}

TEST_F(ReadWorkflow, TheLedWordMayBeWiderThanAWord) {
  platform.device.registers[64] = {0x11000};
  read();
  EXPECT_EQ(inside(control).LedWord, 0x11000);
  EXPECT_EQ(panel().LblModulState.caption(), u"USB-Power; 0 -> Kein Fehler");
}

TEST_F(ReadWorkflow, AnotherAddressShowsIdentificationAndReadsNoStatus) {
  inside(control).panel.txtDevAddr.type(u"17");
  platform.loop.onYield = [this] {
    inside(control).panel.LblModulState.setCaption(u"of the host");
    inside(control).panel.LblChnState.setCaption(u"of the host");
  };
  log.clear();
  read();
  EXPECT_THAT(deviceCalls(),
              ElementsAre("ConnectWithSerialDevice(3, 19200)", "ReadDeviceIdentifier(17)",
                          "ReadInputRegisters(17, 4, 1, 2)", "ReadInputRegisters(17, 3, 1, 2)",
                          "ReadInputRegisters(17, 5, 4, 2)", "ReadInputRegisters(17, 16, 16, 2)",
                          "CloseSerialConnection"));
  EXPECT_EQ(panel().LblModulState.caption(), u"");
  EXPECT_EQ(panel().LblChnState.caption(), u"");
  EXPECT_EQ(panel().LblVendorID.caption(), u"49");
  EXPECT_EQ(control.get_DataValid(), 1);
  EXPECT_EQ(inside(control).StatusString, u"Verbindungsaufbau");
  EXPECT_TRUE(panel().ImageDevState.visible());
}

TEST_F(ReadWorkflow, AnUnknownModuleSucceedsAndReadsRegisterZero) {
  platform.device.identifier = {49, 1, 99, 1};
  read();
  EXPECT_EQ(log.count("ReadInputRegisters(192, 0, 1, 2)"), 4U);
  EXPECT_TRUE(inside(control).bDataValid);
  EXPECT_EQ(panel().LblModulState.caption(), u"80 -> Fehler Parameter Checksumme");
}

TEST_F(ReadWorkflow, AnUnknownModuleWithAnErrorReadsRegisterZeroSixTimes) {
  platform.device.identifier = {49, 1, 99, 1};
  platform.device.registers[0] = {0x0002};
  read();
  EXPECT_EQ(log.count("ReadInputRegisters(192, 0, 1, 2)"), 6U);
}

TEST_F(ReadWorkflow, AnotherFirmwareKeepsTheRegistersOfTheLastExactMatch) {
  read();
  platform.device.registers[4] = {0x3000};
  log.clear();
  read();
  EXPECT_EQ(log.count("ReadInputRegisters(192, 60, 1, 2)"), 1U);
  EXPECT_TRUE(inside(control).bDataValid);
}

TEST_F(ReadWorkflow, HideFwVersionHidesTheFirmwareRowAndAnyOtherValueShowsIt) {
  auto catalogue = FakeCatalogue::oneModule();
  catalogue.children[0].children[0].attributes[1] = u"1";
  platform.xmlTree = [&] { return std::make_unique<FakeCatalogue>(catalogue); };
  read();
  EXPECT_FALSE(panel().LblFwVersion.visible());
  EXPECT_FALSE(panel().LngLabel[4].visible());
  catalogue.children[0].children[0].attributes[1] = u"2";
  read();
  EXPECT_TRUE(panel().LblFwVersion.visible());
  EXPECT_TRUE(panel().LngLabel[4].visible());
}

TEST_F(ReadWorkflow, TheVersionIsShownWithAPointUnderADecimalComma) {
  platform.systemLocale.separator = u",";
  platform.settings[u"Control Panel\\International\\|sDecimal"] = std::u16string(u",");
  read();
  EXPECT_EQ(panel().LblFwVersion.caption(), u"1.234");
  EXPECT_EQ(inside(control).RegDevStatus, 60);
}

class HartRead : public ReadWorkflow {
 protected:
  HartRead() {
    platform.device.identifier = {176, 5, 226, 1};
    platform.device.registers = {
        {24, {0, 0, 'H', 'V', '1'}}, {20, {0, 0, 'N', 'a', 'm', 'e'}}, {27, {0, 0, 'S', '7'}}};
    platform.device.cmd48Reply[0] = 3;
    platform.device.cmd48Reply[1] = 0;
    inside(control).FirmwareVers = 9.5F;
    inside(control).SerialNumber = std::uint64_t{42};
  }
};

TEST_F(HartRead, ReadsThreeTextsAndTheStatusCommand) {
  read();
  EXPECT_THAT(
      story(),
      ElementsAre("StatusChange()", "StatusChange(Verbindungsaufbau)", "ModulActive(1)", "yield",
                  "ConnectWithSerialDevice(3, 19200)", "yield", "ReadDeviceIdentifier(192)",
                  "yield", "ReadInputRegisters(0, 24, 1, 12)", "yield",
                  "ReadInputRegisters(0, 20, 1, 12)", "yield", "ReadInputRegisters(0, 27, 1, 12)",
                  "CMD48", "StatusChange()", "CloseSerialConnection", "StatusChange()",
                  "ModulActive(0)", "NFCReader(false)"));
  EXPECT_EQ(inside(control).FwVersion, u"HV1");
  EXPECT_EQ(panel().LblFwVersion.caption(), u"HV1");
  EXPECT_EQ(inside(control).DeviceName, u"Name");
  EXPECT_EQ(panel().LabelDeviceName.caption(), u"Name");
  EXPECT_EQ(panel().LblSerialNumber.caption(), u"S7");
  EXPECT_EQ(inside(control).SerialNumber, Variant{std::uint64_t{42}});
  EXPECT_EQ(inside(control).FirmwareVers, 9.5F);
}

TEST_F(HartRead, AGoodStatusByteShowsNoFaultAndPictureOne) {
  read();
  EXPECT_EQ(panel().LblModulState.caption(), u"0 -> Kein Fehler");
  EXPECT_EQ(panel().LblModulState.state().toolTipTitle, u"Modul Status");
  EXPECT_EQ(panel().LblModulState.state().toolTipText, u"0 -> Kein Fehler");
  EXPECT_EQ(panel().LblChnState.caption(), u"3");
  EXPECT_EQ(panel().LblChnState.state().toolTipTitle, u"Kanal Status");
  EXPECT_EQ(panel().ImageDevState.state().picture, PictureSource{1});
  EXPECT_EQ(inside(control).StatusString, u"");
}

TEST_F(HartRead, AnotherStatusByteShowsOnlyTheNumberAndPictureTwo) {
  platform.device.cmd48Reply[1] = 200;
  read();
  EXPECT_EQ(panel().LblModulState.caption(), u"200");
  EXPECT_EQ(panel().ImageDevState.state().picture, PictureSource{2});
}

TEST_F(HartRead, WithoutAReplyTheLabelsAreClearedAndPictureAndStatusStay) {
  for (const std::int16_t count : {std::int16_t{0}, std::int16_t{-1}}) {
    platform.device.cmd48Count = count;
    inside(control).panel.ImageDevState.setPicture(PictureSource{7});
    read();
    EXPECT_EQ(panel().LblModulState.caption(), u"");
    EXPECT_EQ(panel().LblChnState.caption(), u"");
    EXPECT_EQ(panel().LblModulState.state().toolTipTitle, u"Modul Status");
    EXPECT_EQ(panel().ImageDevState.state().picture, PictureSource{7});
    EXPECT_TRUE(panel().ImageDevState.visible());
    EXPECT_EQ(inside(control).StatusString, u"Verbindungsaufbau");
    EXPECT_TRUE(inside(control).bDataValid);
  }
}

TEST_F(HartRead, AReplyOfOneByteTakesTheSecondFromTheZeroedBuffer) {
  platform.device.cmd48Count = 1;
  read();
  EXPECT_EQ(panel().LblModulState.caption(), u"0 -> Kein Fehler");
}

TEST_F(HartRead, ReadsTheStatusAtAnyAddress) {
  inside(control).panel.txtDevAddr.type(u"5");
  read();
  EXPECT_EQ(log.count("CMD48"), 1U);
  EXPECT_EQ(log.count("ReadDeviceIdentifier(5)"), 1U);
}

TEST_F(HartRead, LeavesTheVisibilityOfTheFirmwareRow) {
  inside(control).panel.LblFwVersion.setVisible(false);
  log.clear();
  read();
  EXPECT_FALSE(panel().LblFwVersion.visible());
  EXPECT_THAT(log.only({"LngLabel"}), IsEmpty());
}

TEST_F(HartRead, IsChosenByTheVendorWhicheverObjectIsSelected) {
  inside(control).CommObject = moduleWide().NfcCommObject;
  read();
  EXPECT_EQ(log.count("CMD48"), 1U);
}

}  // namespace
}  // namespace tessara::testing
