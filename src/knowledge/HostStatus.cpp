#include "control/Control.h"
#include "control/ModulInfoFLII.h"
#include "knowledge/ChannelStatus.h"

namespace tessara {

bool ModulInfoFLII::SetModuleStatus(std::int32_t& lDevStatus, std::int32_t& lLedStatus) {
  const std::int16_t devStatus = narrowToInt16(lDevStatus, "lDevStatus");
  const std::int16_t ledStatus = narrowToInt16(lLedStatus, "lLedStatus");
  control_->showModuleStatus(devStatus, ledStatus);
  return true;
}

bool ModulInfoFLII::SetChnStatus(std::int32_t& lInStatus, std::int32_t& lOutStatus) {
  const std::int16_t inStatus = narrowToInt16(lInStatus, "lInStatus");
  const std::int16_t outStatus = narrowToInt16(lOutStatus, "lOutStatus");
  control_->showChnState(DecodeChannelStatus(inStatus, outStatus, control_->bNFCReader,
                                             control_->FamilyID, moduleWide()));
  return true;
}

Variant ModulInfoFLII::get_ModulStatusString() const {
  return control_->panel.LblModulState.caption();
}

Variant ModulInfoFLII::get_ChnStatusString() const {
  return control_->panel.LblChnState.caption();
}

}  // namespace tessara
