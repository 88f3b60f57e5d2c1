#include <gmock/gmock.h>

#include "ControlFixture.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CommandState : public ControlFixture {
 protected:
  /// The enabled states of the six buttons: Read, Store, Offline, Open, Save, Print.
  [[nodiscard]] std::string states() const {
    const Panel& panel = inside(control).panel;
    std::string out;
    for (const auto* button : {&panel.CmdDeviceInfo, &panel.CmdStoreParameter,
                               &panel.CmdOfflineConfigure, &panel.CmdOpenDiskParameter,
                               &panel.CmdSave2DiskParameter, &panel.CmdPrintConfiguration}) {
      out += button->enabled() ? '1' : '0';
    }
    return out;
  }
};

TEST_F(CommandState, ANewPanelHasAllButtonsEnabled) {
  EXPECT_EQ(states(), "111111");
}

TEST_F(CommandState, LockDisablesTheStoreButtonAndSetsItsPictureAgain) {
  control.UnLockCmdStore();
  log.clear();
  EXPECT_EQ(control.LockCmdStore(), Variant{});
  EXPECT_TRUE(inside(control).bCmdStoreLocked);
  EXPECT_THAT(log.entries(),
              ElementsAre("CmdStoreParameter.enabled=false", "CmdStoreParameter.picture=Download"));
}

TEST_F(CommandState, UnlockEnablesTheStoreButton) {
  control.LockCmdStore();
  EXPECT_EQ(control.UnLockCmdStore(), Variant{});
  EXPECT_FALSE(inside(control).bCmdStoreLocked);
  EXPECT_EQ(states(), "111111");
}

TEST_F(CommandState, EnableDoesNothingWhileLocked) {
  control.LockCmdStore();
  log.clear();
  EXPECT_EQ(control.EnableCmdStore(), Variant{});
  EXPECT_THAT(log.entries(), IsEmpty());
  EXPECT_EQ(states(), "101111");
}

TEST_F(CommandState, EnableEnablesTheStoreButtonWhenUnlocked) {
  control.UnLockCmdStore();
  control.DisableCmdStore();
  log.clear();
  control.EnableCmdStore();
  EXPECT_THAT(log.entries(),
              ElementsAre("CmdStoreParameter.enabled=true", "CmdStoreParameter.picture=Download"));
}

TEST_F(CommandState, DisableDisablesFourButtonsInOrderAndKeepsTheLock) {
  control.UnLockCmdStore();
  log.clear();
  EXPECT_EQ(control.DisableCmdStore(), Variant{});
  EXPECT_THAT(
      log.entries(),
      ElementsAre("CmdStoreParameter.enabled=false", "CmdStoreParameter.picture=Download",
                  "CmdOpenDiskParameter.enabled=false", "CmdOpenDiskParameter.picture=Open",
                  "CmdSave2DiskParameter.enabled=false", "CmdSave2DiskParameter.picture=Save",
                  "CmdPrintConfiguration.enabled=false", "CmdPrintConfiguration.picture=Print"));
  EXPECT_FALSE(inside(control).bCmdStoreLocked);
}

TEST_F(CommandState, UnlockAfterDisableEnablesOnlyStore) {
  control.DisableCmdStore();
  control.UnLockCmdStore();
  EXPECT_EQ(states(), "111000");
}

TEST_F(CommandState, HostBusySavesFourStatesAndDisablesAllSixBeforeTheCallback) {
  inside(control).panel.CmdOfflineConfigure.setEnabled(false);
  inside(control).panel.CmdOpenDiskParameter.setEnabled(false);
  log.clear();
  control.put_DeviceActive(1);
  EXPECT_THAT(
      log.entries(),
      ElementsAre("CmdStoreParameter.enabled=false", "CmdStoreParameter.picture=Download",
                  "CmdOfflineConfigure.enabled=false", "CmdOfflineConfigure.picture=Offline",
                  "CmdOpenDiskParameter.enabled=false", "CmdOpenDiskParameter.picture=Open",
                  "CmdSave2DiskParameter.enabled=false", "CmdSave2DiskParameter.picture=Save",
                  "CmdPrintConfiguration.enabled=false", "CmdPrintConfiguration.picture=Print",
                  "CmdDeviceInfo.enabled=false", "CmdDeviceInfo.picture=Upload", "ModulActive(1)"));
  EXPECT_THAT(inside(control).SavedCmdEnabled,
              ElementsAre(true, false, false, true, false, false, false));
  EXPECT_TRUE(inside(control).HostActive);
}

TEST_F(CommandState, HostIdleRestoresStoreAndOfflineAndEnablesTheOthers) {
  inside(control).panel.CmdStoreParameter.setEnabled(false);
  control.put_DeviceActive(1);
  log.clear();
  control.put_DeviceActive(0);
  EXPECT_THAT(
      log.entries(),
      ElementsAre("CmdDeviceInfo.enabled=true", "CmdDeviceInfo.picture=Upload",
                  "CmdStoreParameter.enabled=false", "CmdStoreParameter.picture=Download",
                  "CmdOfflineConfigure.enabled=true", "CmdOfflineConfigure.picture=Offline",
                  "CmdOpenDiskParameter.enabled=true", "CmdOpenDiskParameter.picture=Open",
                  "CmdSave2DiskParameter.enabled=true", "CmdSave2DiskParameter.picture=Save",
                  "CmdPrintConfiguration.enabled=true", "CmdPrintConfiguration.picture=Print",
                  "ModulActive(0)"));
  EXPECT_FALSE(inside(control).HostActive);
}

TEST_F(CommandState, OpenAndSaveAreEnabledEvenIfTheyWereDisabled) {
  inside(control).panel.CmdOpenDiskParameter.setEnabled(false);
  inside(control).panel.CmdSave2DiskParameter.setEnabled(false);
  control.put_DeviceActive(1);
  control.put_DeviceActive(0);
  EXPECT_EQ(states(), "111111");
}

TEST_F(CommandState, HostBusyDeclaredTwiceSavesTheDisabledState) {
  control.put_DeviceActive(1);
  control.put_DeviceActive(1);
  control.put_DeviceActive(0);
  EXPECT_EQ(states(), "100111");
}

TEST_F(CommandState, HostIdleWithoutHostBusyTakesTheInitialSavedStates) {
  control.DisableCmdStore();
  control.put_DeviceActive(0);
  EXPECT_EQ(states(), "111111");
}

TEST_F(CommandState, FailureDeclaredDisablesPrintAndStopsTheTimer) {
  platform.loop.timerEnabled = true;
  inside(control).ScanEnabled = true;
  inside(control).HostActive = true;
  inside(control).SavedCmdEnabled[0] = false;
  inside(control).SavedCmdEnabled[1] = false;
  control.put_DeviceActive(3);
  EXPECT_EQ(states(), "101110");
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_FALSE(inside(control).ScanEnabled);
  EXPECT_FALSE(inside(control).HostActive);
  EXPECT_EQ(log.entries().back(), "ModulActive(3)");
}

/// What both declarations that end the scan set, up to the print button.
std::vector<std::string> restoredButtons() {
  return {"CmdDeviceInfo.enabled=true",         "CmdDeviceInfo.picture=Upload",
          "CmdStoreParameter.enabled=false",    "CmdStoreParameter.picture=Download",
          "CmdOfflineConfigure.enabled=true",   "CmdOfflineConfigure.picture=Offline",
          "CmdOpenDiskParameter.enabled=true",  "CmdOpenDiskParameter.picture=Open",
          "CmdSave2DiskParameter.enabled=true", "CmdSave2DiskParameter.picture=Save"};
}

TEST_F(CommandState, FailureDeclaredSetsTheButtonsInOrder) {
  inside(control).SavedCmdEnabled[0] = inside(control).SavedCmdEnabled[1] = false;
  control.put_DeviceActive(3);
  auto expected = restoredButtons();
  expected.insert(expected.end(),
                  {"CmdPrintConfiguration.enabled=false", "CmdPrintConfiguration.picture=Print",
                   "TimerScanDevice.enabled=false", "ModulActive(3)"});
  EXPECT_EQ(log.entries(), expected);
}

TEST_F(CommandState, RestoreDeclaredSetsTheButtonsInOrder) {
  inside(control).SavedCmdEnabled[0] = inside(control).SavedCmdEnabled[1] = false;
  control.put_DeviceActive(5);
  auto expected = restoredButtons();
  expected.insert(expected.end(), {"TimerScanDevice.enabled=false", "ModulActive(5)"});
  EXPECT_EQ(log.entries(), expected);
}

TEST_F(CommandState, ScanDeclaredPausesTheScanAndChangesNothingElse) {
  platform.loop.timerEnabled = true;
  control.put_DeviceActive(4);
  EXPECT_THAT(log.entries(), ElementsAre("ModulActive(4)"));
  EXPECT_TRUE(inside(control).HostActive);
  EXPECT_TRUE(platform.loop.timerEnabled);
}

TEST_F(CommandState, RestoreDeclaredLeavesPrintAndStopsTheTimer) {
  control.DisableCmdStore();
  platform.loop.timerEnabled = true;
  inside(control).ScanEnabled = true;
  inside(control).HostActive = true;
  control.put_DeviceActive(5);
  EXPECT_EQ(states(), "111110");
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_FALSE(inside(control).ScanEnabled);
  EXPECT_FALSE(inside(control).HostActive);
  EXPECT_EQ(log.entries().back(), "ModulActive(5)");
}

TEST_F(CommandState, SixAndSevenAreReportedOneHigher) {
  inside(control).HostActive = true;
  control.put_DeviceActive(6);
  control.put_DeviceActive(7);
  EXPECT_THAT(log.entries(), ElementsAre("ModulActive(7)", "ModulActive(8)"));
  EXPECT_TRUE(inside(control).HostActive);
}

TEST_F(CommandState, OtherDeclarationsDoNothing) {
  for (const std::int32_t value : {2, 8, -1, 1000}) {
    control.put_DeviceActive(value);
  }
  EXPECT_THAT(log.entries(), IsEmpty());
}

TEST_F(CommandState, OfflineButtonEnablesFiveButtonsDespiteTheLockAndClearsTheLabels) {
  control.DisableCmdStore();
  inside(control).panel.CmdDeviceInfo.setEnabled(false);
  inside(control).panel.CmdPrintConfiguration.setEnabled(false);
  inside(control).ScanEnabled = true;
  platform.loop.timerEnabled = true;
  log.clear();
  inside(control).panel.CmdOfflineConfigure.press();
  EXPECT_TRUE(inside(control).OfflineMode);
  EXPECT_TRUE(inside(control).bCmdStoreLocked);
  EXPECT_THAT(
      log.entries(),
      ElementsAre("CmdDeviceInfo.enabled=true", "CmdDeviceInfo.picture=Upload",
                  "CmdStoreParameter.enabled=true", "CmdStoreParameter.picture=Download",
                  "CmdOfflineConfigure.enabled=true", "CmdOfflineConfigure.picture=Offline",
                  "CmdOpenDiskParameter.enabled=true", "CmdOpenDiskParameter.picture=Open",
                  "CmdSave2DiskParameter.enabled=true", "CmdSave2DiskParameter.picture=Save",
                  "LabelDeviceName.caption=", "LblVendorID.caption=", "LblFamilyID.caption=",
                  "LblGroupID.caption=", "LblDeviceID.caption=", "LblFwVersion.caption=",
                  "LblSerialNumber.caption=", "LblModulState.caption=", "LblChnState.caption=",
                  "LabelDeviceDescription.caption=", "TimerScanDevice.enabled=false"));
  EXPECT_EQ(states(), "111110");
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_FALSE(inside(control).ScanEnabled);
}

TEST_F(CommandState, DiskAndPrintButtonsOnlyNotifyTheHost) {
  inside(control).panel.CmdOpenDiskParameter.press();
  inside(control).panel.CmdSave2DiskParameter.press();
  inside(control).panel.CmdPrintConfiguration.press();
  EXPECT_THAT(log.entries(),
              ElementsAre("LoadConfiguration", "SaveConfiguration", "PrintConfiguration"));
  EXPECT_EQ(states(), "111111");
}

TEST_F(CommandState, ADisabledOrHiddenButtonCannotBePressed) {
  control.DisableCmdStore();
  log.clear();
  EXPECT_EQ(errorNumberOf([&] { inside(control).panel.CmdOpenDiskParameter.press(); }), 5);
  inside(control).panel.CmdDeviceInfo.setVisible(false);
  EXPECT_EQ(errorNumberOf([&] { inside(control).panel.CmdDeviceInfo.press(); }), 5);
  EXPECT_THAT(log.only({"LoadConfiguration", "ModulActive"}), IsEmpty());
}

}  // namespace
}  // namespace tessara::testing
