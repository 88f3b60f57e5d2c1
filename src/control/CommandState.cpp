#include <array>

#include "control/ModulInfoFLII.h"

namespace tessara {
namespace {

struct ButtonImage {
  Widget Panel::*button;
  std::u16string_view key;
};

/// The pictures look from the module's side: "Download" writes to it, "Upload" reads from it.
/// The order is that in which the pictures are handed out.
constexpr std::array<ButtonImage, 9> buttonImages{{
    {&Panel::CmdDeviceInfo, u"Upload"},
    {&Panel::CmdStoreParameter, u"Download"},
    {&Panel::CmdOpenDiskParameter, u"Open"},
    {&Panel::CmdSave2DiskParameter, u"Save"},
    {&Panel::CmdOfflineConfigure, u"Offline"},
    {&Panel::CmdPrintConfiguration, u"Print"},
    {&Panel::CmdHelp, u"Help"},
    {&Panel::CmdAbout, u"About"},
    {&Panel::cmdSettings, u"Settings"},
}};

void setButton(Panel& panel, Widget Panel::*button, bool bEnabled) {
  (panel.*button).setEnabled(bEnabled);
  for (const auto& image : buttonImages) {
    if (image.button == button) {
      (panel.*button).setPicture(std::u16string(image.key));
    }
  }
}

}  // namespace

void ModulInfoFLII::ApplyButtonImages() {
  for (const auto& image : buttonImages) {
    (panel.*image.button).setPicture(std::u16string(image.key));
  }
}

void ModulInfoFLII::SetStoreButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdStoreParameter, bEnabled);
}

void ModulInfoFLII::SetReadButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdDeviceInfo, bEnabled);
}

void ModulInfoFLII::SetOfflineButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdOfflineConfigure, bEnabled);
}

void ModulInfoFLII::SetOpenButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdOpenDiskParameter, bEnabled);
}

void ModulInfoFLII::SetSaveButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdSave2DiskParameter, bEnabled);
}

void ModulInfoFLII::SetPrintButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdPrintConfiguration, bEnabled);
}

void ModulInfoFLII::ClearPanel() {
  constexpr std::array labels{&Panel::LabelDeviceName,
                              &Panel::LblVendorID,
                              &Panel::LblGroupID,
                              &Panel::LblFamilyID,
                              &Panel::LblDeviceID,
                              &Panel::LblFwVersion,
                              &Panel::LabelDeviceDescription,
                              &Panel::LblSerialNumber,
                              &Panel::LblModulState,
                              &Panel::LblChnState};
  for (const auto label : labels) {
    (panel.*label).setCaption({});
    (panel.*label).refresh();
  }
}

Variant ModulInfoFLII::LockCmdStore() {
  bCmdStoreLocked = true;
  SetStoreButton(false);
  return {};
}

Variant ModulInfoFLII::UnLockCmdStore() {
  bCmdStoreLocked = false;
  SetStoreButton(true);
  return {};
}

Variant ModulInfoFLII::EnableCmdStore() {
  if (!bCmdStoreLocked) {
    SetStoreButton(true);
  }
  return {};
}

Variant ModulInfoFLII::DisableCmdStore() {
  SetStoreButton(false);
  SetOpenButton(false);
  SetSaveButton(false);
  SetPrintButton(false);
  return {};
}

void ModulInfoFLII::CmdOfflineConfigure_Click() {
  OfflineMode = true;
  SetReadButton(true);
  SetStoreButton(true);
  SetOfflineButton(true);
  SetOpenButton(true);
  SetSaveButton(true);
  constexpr std::array labels{&Panel::LabelDeviceName, &Panel::LblVendorID,
                              &Panel::LblFamilyID,     &Panel::LblGroupID,
                              &Panel::LblDeviceID,     &Panel::LblFwVersion,
                              &Panel::LblSerialNumber, &Panel::LblModulState,
                              &Panel::LblChnState,     &Panel::LabelDeviceDescription};
  for (const auto label : labels) {
    (panel.*label).setCaption({});
  }
  stopScan();
}

void ModulInfoFLII::CmdOpenDiskParameter_Click() {
  raise(&HostEvents::LoadConfiguration);
}
void ModulInfoFLII::CmdSave2DiskParameter_Click() {
  raise(&HostEvents::SaveConfiguration);
}
void ModulInfoFLII::CmdPrintConfiguration_Click() {
  raise(&HostEvents::PrintConfiguration);
}

}  // namespace tessara
