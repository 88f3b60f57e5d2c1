#include <algorithm>
#include <array>
#include <optional>

#include "control/Control.h"
#include "control/ModulInfoFLII.h"

namespace tessara {
namespace {

enum class Buttons { Stay, SaveAndOff, BackOn, BackOnPrintOff, BackOnAll };

/// What a host declares with DeviceActive, and its effects. From 6 on, the numbers that go out
/// differ from those that come in.
struct Declaration {
  std::int32_t lActive;
  Buttons buttons;
  std::optional<bool> hostActive;
  bool stopsTimer;
  Activity activity;
};

constexpr std::array<Declaration, 7> declarations{{
    {0, Buttons::BackOnAll, false, false, Activity::AccessOver},
    {1, Buttons::SaveAndOff, true, false, Activity::Busy},
    {3, Buttons::BackOnPrintOff, false, true, Activity::ConnectionFailed},
    {4, Buttons::Stay, true, false, Activity::Scanning},
    {5, Buttons::BackOn, false, true, Activity::HostWorkEnded},
    {6, Buttons::Stay, std::nullopt, false, Activity::PassedOn7},
    {7, Buttons::Stay, std::nullopt, false, Activity::PassedOn8},
}};

}  // namespace

void Control::saveAndDisableButtons() {
  saveButtons();
  SetStoreButton(false);
  SetOfflineButton(false);
  SetOpenButton(false);
  SetSaveButton(false);
  SetPrintButton(false);
  SetReadButton(false);
}

void Control::saveButtons() {
  SavedCmdEnabled[0] = panel.CmdStoreParameter.enabled();
  SavedCmdEnabled[1] = panel.CmdOfflineConfigure.enabled();
  SavedCmdEnabled[2] = panel.CmdOpenDiskParameter.enabled();
  SavedCmdEnabled[3] = panel.CmdSave2DiskParameter.enabled();
}

void Control::restoreButtons(bool bOfflineEnabled) {
  SetReadButton(true);
  SetStoreButton(SavedCmdEnabled[0]);
  SetOfflineButton(bOfflineEnabled);
  SetOpenButton(true);
  SetSaveButton(true);
}

void ModulInfoFLII::put_DeviceActive(std::int32_t lActive) {
  const auto* declared =
      std::find_if(declarations.begin(), declarations.end(),
                   [&](const Declaration& row) { return row.lActive == lActive; });
  if (declared == declarations.end()) {
    return;
  }
  switch (declared->buttons) {
    case Buttons::Stay:
      break;
    case Buttons::SaveAndOff:
      control_->saveAndDisableButtons();
      break;
    case Buttons::BackOn:
      control_->restoreButtons(true);
      break;
    case Buttons::BackOnPrintOff:
      control_->restoreButtons(true);
      control_->SetPrintButton(false);
      break;
    case Buttons::BackOnAll:
      control_->restoreButtons(control_->SavedCmdEnabled[1]);
      control_->SetPrintButton(true);
      break;
  }
  control_->HostActive = declared->hostActive.value_or(control_->HostActive);
  if (declared->stopsTimer) {
    control_->stopScan();
  }
  control_->raiseModulActive(declared->activity);
}

}  // namespace tessara
