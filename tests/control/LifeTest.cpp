#include <gmock/gmock.h>

#include "ControlFixture.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;

class Life : public ::testing::Test {
 protected:
  FakePlatform platform;
  FakeHost host{platform.log};
};

TEST_F(Life, InitializeCreatesTheObjectsInOrderAndThenSetsThePictures) {
  PanelLog panelLog(platform.log);
  ModulInfoFLII control(platform, host);
  inside(control).panel.setObserver(&panelLog);
  control.UserControl_Initialize();
  EXPECT_THAT(
      platform.log.entries(),
      ElementsAre("create RegistryHelper", "create BitFieldHelper", "create ModbusCommObject",
                  "create NfcCommObject", "create HartCommObject", "create FileSystem",
                  "create MessageHelper", "CmdDeviceInfo.picture=Upload",
                  "CmdStoreParameter.picture=Download", "CmdOpenDiskParameter.picture=Open",
                  "CmdSave2DiskParameter.picture=Save", "CmdOfflineConfigure.picture=Offline",
                  "CmdPrintConfiguration.picture=Print", "CmdHelp.picture=Help",
                  "CmdAbout.picture=About", "cmdSettings.picture=Settings"));
}

TEST_F(Life, FieldsAfterInitializeHoldTheirInitialValues) {
  ModulInfoFLII control(platform, host);
  control.UserControl_Initialize();
  EXPECT_FALSE(inside(control).DeviceConnected);
  EXPECT_FALSE(inside(control).bDataValid);
  EXPECT_EQ(inside(control).StatusWord, 0);
  EXPECT_EQ(inside(control).StatusString, u"");
  EXPECT_EQ(inside(control).CommunicationObject, nullptr);
  EXPECT_EQ(inside(control).CommObject, nullptr);
  EXPECT_FALSE(inside(control).HostActive);
  EXPECT_TRUE(inside(control).bCmdStoreLocked);
  EXPECT_EQ(inside(control).AppPathString, u"");
  EXPECT_EQ(inside(control).Language, 0);
  EXPECT_THAT(inside(control).SavedCmdEnabled,
              ElementsAre(true, true, true, false, false, false, false));
  EXPECT_FALSE(inside(control).OfflineMode);
  EXPECT_FALSE(inside(control).ReaderMissing);
  EXPECT_EQ(inside(control).ConnectAttempts, 0);
  EXPECT_EQ(inside(control).ScanErrorCount, 0);
  EXPECT_FALSE(inside(control).ScanEnabled);
  EXPECT_EQ(inside(control).ComPort, 0);
  EXPECT_EQ(inside(control).Baudrate, 0);
  EXPECT_EQ(inside(control).DataBits, 8);
  EXPECT_EQ(inside(control).StopBits, 1);
  EXPECT_EQ(inside(control).Parity, 2);
  EXPECT_EQ(inside(control).DevAddr, 0);
  EXPECT_EQ(inside(control).VendorID, 0);
  EXPECT_EQ(inside(control).FirmwareVers, 0);
  EXPECT_EQ(inside(control).SerialNumber, Variant{});
  EXPECT_EQ(inside(control).RegDevStatus, 0);
  EXPECT_EQ(inside(control).StringsReverse, 1);
  EXPECT_EQ(inside(control).HideFwVersion, 0);
  EXPECT_EQ(inside(control).QuickSetupMode, 0);
  EXPECT_FALSE(inside(control).bNFCReader);
  EXPECT_FALSE(inside(control).bQuickSetup);
  EXPECT_FALSE(inside(control).HartMode);
  EXPECT_EQ(inside(control).lMsgResult, 0);
}

TEST_F(Life, ASecondInitializeResetsTheState) {
  ModulInfoFLII control(platform, host);
  control.UserControl_Initialize();
  inside(control).DeviceConnected = inside(control).bDataValid = inside(control).OfflineMode = true;
  inside(control).HostActive = inside(control).ReaderMissing = inside(control).HartMode =
      inside(control).bNFCReader = true;
  inside(control).StatusString = u"text";
  inside(control).StatusWord = 5;
  inside(control).ConnectAttempts = inside(control).ScanErrorCount = 7;
  inside(control).SavedCmdEnabled = {false, false, false, true, true, true, true};
  inside(control).bCmdStoreLocked = false;
  inside(control).StringsReverse = 9;
  control.UserControl_Initialize();
  EXPECT_FALSE(inside(control).DeviceConnected || inside(control).bDataValid ||
               inside(control).OfflineMode);
  EXPECT_FALSE(inside(control).HostActive || inside(control).ReaderMissing ||
               inside(control).HartMode || inside(control).bNFCReader);
  EXPECT_EQ(inside(control).StatusString, u"");
  EXPECT_EQ(inside(control).StatusWord, 0);
  EXPECT_EQ(inside(control).ConnectAttempts, 0);
  EXPECT_EQ(inside(control).ScanErrorCount, 0);
  EXPECT_THAT(inside(control).SavedCmdEnabled,
              ElementsAre(true, true, true, false, true, true, true));
  EXPECT_TRUE(inside(control).bCmdStoreLocked);
  EXPECT_EQ(inside(control).StringsReverse, 1);
}

TEST_F(Life, TheScanTimerHasFourSecondsAndIsDisabled) {
  ModulInfoFLII control(platform, host);
  control.UserControl_Initialize();
  EXPECT_EQ(platform.loop.interval, std::chrono::milliseconds(4000));
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_FALSE(inside(control).panel.TimerScanDevice.enabled());
}

TEST_F(Life, TerminateReleasesInOrderAndShutsDownOnlyModbus) {
  ModulInfoFLII control(platform, host);
  control.UserControl_Initialize();
  inside(control).CommunicationObject = inside(control).CommObject = moduleWide().HartCommObject;
  platform.log.clear();
  control.UserControl_Terminate();
  EXPECT_THAT(
      platform.log.entries(),
      ElementsAre("release FileSystem", "release RegistryHelper", "release BitFieldHelper",
                  "ModbusCommObject.ShutDown", "release ModbusCommObject", "release NfcCommObject",
                  "release HartCommObject", "release MessageHelper"));
  EXPECT_EQ(inside(control).CommObject, nullptr);
  EXPECT_EQ(inside(control).CommunicationObject, nullptr);
}

TEST_F(Life, TheScanTimerEndsWithTheControl) {
  ModulInfoFLII control(platform, host);
  control.UserControl_Initialize();
  platform.loop.timerEnabled = true;
  control.UserControl_Terminate();
  EXPECT_FALSE(platform.loop.timerEnabled);
}

TEST_F(Life, DestructionTerminatesOnce) {
  {
    ModulInfoFLII control(platform, host);
    control.UserControl_Initialize();
    control.UserControl_Terminate();
    control.UserControl_Terminate();
  }
  EXPECT_EQ(platform.log.count("ModbusCommObject.ShutDown"), 1U);
}

/// Modbus on a line that cannot be given up.
class StubbornModbus final : public FakeModbusCommObject {
 public:
  using FakeModbusCommObject::FakeModbusCommObject;
  void ShutDown() override { throw std::runtime_error("the line cannot be given up"); }
};

TEST_F(Life, AFailedShutDownDoesNotPreventTheRelease) {
  {
    ModulInfoFLII control(platform, host);
    control.UserControl_Initialize();
    moduleWide().ModbusCommObject = std::make_shared<StubbornModbus>(platform.device);
    inside(control).CommunicationObject = inside(control).CommObject =
        moduleWide().ModbusCommObject;
    platform.log.clear();
  }
  EXPECT_THAT(platform.log.entries(),
              ElementsAre("release FileSystem", "release RegistryHelper", "release BitFieldHelper",
                          "release ModbusCommObject", "release NfcCommObject",
                          "release HartCommObject", "release MessageHelper"));
}

TEST_F(Life, AControlThatWasNeverInitialisedEndsSilently) {
  { const ModulInfoFLII control(platform, host); }
  EXPECT_TRUE(platform.log.entries().empty());
}

class FailingCreation : public Life, public ::testing::WithParamInterface<const char*> {};

TEST_P(FailingCreation, PassesTheErrorToTheHostAndEndsInOrder) {
  platform.failingCreation = GetParam();
  ModulInfoFLII control(platform, host);
  EXPECT_THROW(control.UserControl_Initialize(), std::runtime_error);
  control.UserControl_Terminate();
  EXPECT_EQ(moduleWide().RegistryHelper, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Objects, FailingCreation,
                         ::testing::Values("RegistryHelper", "BitFieldHelper", "ModbusCommObject",
                                           "NfcCommObject", "HartCommObject", "FileSystem",
                                           "MessageHelper"));

TEST_F(Life, ASecondControlReplacesTheObjectsOfTheFirst) {
  ModulInfoFLII first(platform, host);
  first.UserControl_Initialize();
  const auto* before = moduleWide().RegistryHelper.get();
  ModulInfoFLII second(platform, host);
  second.UserControl_Initialize();
  EXPECT_NE(moduleWide().RegistryHelper.get(), before);
}

TEST_F(Life, TheEndOfEitherControlReleasesTheObjectsForBoth) {
  ModulInfoFLII first(platform, host);
  first.UserControl_Initialize();
  ModulInfoFLII second(platform, host);
  second.UserControl_Initialize();
  first.UserControl_Terminate();
  EXPECT_EQ(moduleWide().RegistryHelper, nullptr);
  EXPECT_EQ(moduleWide().ModbusCommObject, nullptr);
  EXPECT_EQ(errorNumberOf([&] { second.UserControl_Show(); }), 91);
  second.UserControl_Terminate();
}

TEST_F(Life, PanelIsAsDesigned) {
  const ModulInfoFLII control(platform, host);
  const Panel& panel = inside(control).panel;
  EXPECT_THAT(panel.ComboBaudrate.state().items,
              ElementsAre(u"2400", u"4800", u"9600", u"14400", u"19200", u"28800", u"38400",
                          u"56000", u"57600", u"76800", u"115200"));
  EXPECT_EQ(panel.ComboBaudrate.text(), u"19200");
  EXPECT_EQ(panel.ComboBaudrate.state().index, 4);
  EXPECT_EQ(panel.txtDevAddr.text(), u"192");
  EXPECT_EQ(panel.TimerScanDevice.state().interval, 4000);
  EXPECT_FALSE(panel.TimerScanDevice.enabled());
  EXPECT_FALSE(panel.ImageDevState.visible());
  EXPECT_EQ(panel.UniLabel1.caption(), u"Family ID :");
  EXPECT_EQ(panel.UniLabel2.caption(), u"Device ID :");
  EXPECT_EQ(panel.UniLabel3.caption(), u"Group ID :");
  EXPECT_EQ(panel.Label1.caption(), u"Vendor ID:");
  EXPECT_TRUE(panel.ComboComPort.state().items.empty());
  EXPECT_THAT(panel.ImageListButtons.state().items,
              ElementsAre(u"Upload", u"Download", u"Open", u"Save", u"Settings", u"Print",
                          u"Offline", u"Help", u"About"));
  for (const auto* button :
       {&panel.CmdDeviceInfo, &panel.CmdStoreParameter, &panel.CmdOpenDiskParameter,
        &panel.CmdSave2DiskParameter, &panel.CmdOfflineConfigure, &panel.CmdPrintConfiguration,
        &panel.CmdHelp, &panel.cmdSettings, &panel.CmdAbout}) {
    EXPECT_TRUE(button->enabled());
    EXPECT_TRUE(button->visible());
    EXPECT_EQ(button->caption(), u"");
  }
}

TEST_F(Life, EveryWidgetIsFoundByItsName) {
  const ModulInfoFLII control(platform, host);
  EXPECT_EQ(inside(control).panel.find(u"LngLabel[3]"), &inside(control).panel.LngLabel[3]);
  EXPECT_EQ(inside(control).panel.find(u"LblModulState"), &inside(control).panel.LblModulState);
  EXPECT_EQ(inside(control).panel.find(u"nothing"), nullptr);
  EXPECT_EQ(inside(control).panel.widgets().size(), 45U);
}

}  // namespace
}  // namespace tessara::testing
