#include <array>

#include "control/Control.h"
#include "control/ModulInfoFLII.h"

namespace tessara {
namespace {

struct ButtonImage {
  Widget Panel::*button;
  std::u16string_view key;
};

/// The names of the pictures take the module's point of view: "Download" writes to it, "Upload"
/// reads from it. The pictures are set in this order.
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

void Control::ApplyButtonImages() {
  for (const auto& image : buttonImages) {
    (panel.*image.button).setPicture(std::u16string(image.key));
  }
}

void Control::SetStoreButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdStoreParameter, bEnabled);
}

void Control::SetReadButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdDeviceInfo, bEnabled);
}

void Control::SetOfflineButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdOfflineConfigure, bEnabled);
}

void Control::SetOpenButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdOpenDiskParameter, bEnabled);
}

void Control::SetSaveButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdSave2DiskParameter, bEnabled);
}

void Control::SetPrintButton(const bool& bEnabled) {
  setButton(panel, &Panel::CmdPrintConfiguration, bEnabled);
}

void Control::ClearPanel() {
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
  control_->bCmdStoreLocked = true;
  control_->SetStoreButton(false);
  return {};
}

Variant ModulInfoFLII::UnLockCmdStore() {
  control_->bCmdStoreLocked = false;
  control_->SetStoreButton(true);
  return {};
}

Variant ModulInfoFLII::EnableCmdStore() {
  if (!control_->bCmdStoreLocked) {
    control_->SetStoreButton(true);
  }
  return {};
}

Variant ModulInfoFLII::DisableCmdStore() {
  control_->SetStoreButton(false);
  control_->SetOpenButton(false);
  control_->SetSaveButton(false);
  control_->SetPrintButton(false);
  return {};
}

void Control::CmdOfflineConfigure_Click() {
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

void Control::CmdOpenDiskParameter_Click() {
  raise(&HostEvents::LoadConfiguration);
}
void Control::CmdSave2DiskParameter_Click() {
  raise(&HostEvents::SaveConfiguration);
}
void Control::CmdPrintConfiguration_Click() {
  raise(&HostEvents::PrintConfiguration);
}

}  // namespace tessara
