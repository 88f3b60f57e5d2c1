#include "control/ModulInfoFLII.h"
#include "knowledge/ChannelStatus.h"
#include "knowledge/ModuleStatus.h"

namespace tessara {

std::u16string ModulInfoFLII::decodeModuleStatus(std::int16_t statusWord) {
  if (statusWord == 0 && !bNFCReader) {
    panel.ImageDevState.setPicture(pictureGood);
  }
  return DecodeModuleStatusBits(statusWord, bNFCReader, FamilyID, moduleWide());
}

bool ModulInfoFLII::SetModuleStatus(std::int32_t& lDevStatus, std::int32_t& lLedStatus) {
  const std::int16_t devStatus = narrowToInt16(lDevStatus, "lDevStatus");
  const std::int16_t ledStatus = narrowToInt16(lLedStatus, "lLedStatus");
  std::u16string line = decodeModuleStatus(devStatus);
  if ((ledStatus & usbPowered) != 0) {
    line.insert(0, usbPowerText);
  }
  showModulState(std::move(line));
  return true;
}

bool ModulInfoFLII::SetChnStatus(std::int32_t& lInStatus, std::int32_t& lOutStatus) {
  const std::int16_t inStatus = narrowToInt16(lInStatus, "lInStatus");
  const std::int16_t outStatus = narrowToInt16(lOutStatus, "lOutStatus");
  showChnState(DecodeChannelStatus(inStatus, outStatus, bNFCReader, FamilyID, moduleWide()));
  return true;
}

Variant ModulInfoFLII::get_ModulStatusString() const {
  return panel.LblModulState.caption();
}

Variant ModulInfoFLII::get_ChnStatusString() const {
  return panel.LblChnState.caption();
}

}  // namespace tessara
