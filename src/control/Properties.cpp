#include <limits>
#include <utility>

#include "base/Text.h"
#include "control/Control.h"
#include "control/ModulInfoFLII.h"

namespace tessara {

std::int32_t ModulInfoFLII::get_DeviceID() const {
  return control_->DeviceID;
}
void ModulInfoFLII::put_DeviceID(std::int32_t value) {
  control_->DeviceID = narrowToInt16(value, "DeviceID");
}

std::int32_t ModulInfoFLII::get_FamilyID() const {
  return control_->FamilyID;
}
void ModulInfoFLII::put_FamilyID(std::int32_t value) {
  control_->FamilyID = narrowToInt16(value, "FamilyID");
}

double ModulInfoFLII::get_FirmwareVers() const {
  return control_->FirmwareVers;
}
void ModulInfoFLII::put_FirmwareVers(double value) {
  if (value > std::numeric_limits<float>::max() || value < std::numeric_limits<float>::lowest()) {
    throw RunTimeError(ErrorNumber::Overflow, "FirmwareVers: " + toUtf8(numberText(value, u".")) +
                                                  " is outside the range of a 32-bit float");
  }
  control_->FirmwareVers = static_cast<float>(value);
}

Variant ModulInfoFLII::get_DeviceName() const {
  return control_->DeviceName;
}
void ModulInfoFLII::put_DeviceName(const Variant& value) {
  control_->DeviceName = control_->asText(value);
}

Variant ModulInfoFLII::get_CmdLineString() const {
  return control_->CmdLineString;
}
void ModulInfoFLII::put_CmdLineString(const Variant& value) {
  control_->CmdLineString = control_->asText(value);
}

Variant ModulInfoFLII::get_FwVersion() const {
  return control_->FwVersion;
}

Variant ModulInfoFLII::get_SerialNumber() const {
  const auto* number = std::get_if<std::uint64_t>(&control_->SerialNumber);
  return number == nullptr ? std::uint64_t{0} : *number;
}

Variant ModulInfoFLII::get_PackbLink() const {
  return control_->PackbLink;
}
void ModulInfoFLII::put_PackbLink(const Variant& value) {
  control_->PackbLink = control_->asText(value);
}

Variant ModulInfoFLII::get_ProductLink() const {
  return control_->ProductLink;
}
void ModulInfoFLII::put_ProductLink(const Variant& value) {
  control_->ProductLink = control_->asText(value);
}

Variant ModulInfoFLII::get_DatasheetLink() const {
  return control_->DatasheetLink;
}
void ModulInfoFLII::put_DatasheetLink(const Variant& value) {
  control_->DatasheetLink = control_->asText(value);
}

Variant ModulInfoFLII::get_VersionString() const {
  return control_->VersionString;
}
void ModulInfoFLII::put_VersionString(const Variant& value) {
  control_->VersionString = control_->asText(value);
}

std::uint8_t ModulInfoFLII::get_DevAddr() const {
  return control_->DevAddr;
}

CommunicationObject* ModulInfoFLII::get_CommunicationObject() const {
  return control_->CommunicationObject.get();
}

std::int32_t ModulInfoFLII::get_DataValid() const {
  if (control_->OfflineMode) {
    return 2;
  }
  return control_->bDataValid ? 1 : 0;
}

void ModulInfoFLII::put_DataValid(std::int32_t value) {
  control_->bDataValid = value != 0;
  if (value == 0) {
    control_->OfflineMode = false;
  }
}

std::int32_t ModulInfoFLII::get_DeviceConnected() const {
  return control_->DeviceConnected ? 1 : 0;
}
void ModulInfoFLII::put_DeviceConnected(std::int32_t value) {
  control_->DeviceConnected = value == 1;
}

std::int32_t ModulInfoFLII::get_ComPort() const {
  return control_->ComPort;
}
void ModulInfoFLII::put_ComPort(std::int32_t value) {
  control_->ComPort = narrowToInt16(value, "ComPort");
}

std::int32_t ModulInfoFLII::get_DataBits() const {
  return control_->DataBits;
}
std::int32_t ModulInfoFLII::get_StopBits() const {
  return control_->StopBits;
}
std::int32_t ModulInfoFLII::get_Parity() const {
  return control_->Parity;
}

std::int32_t ModulInfoFLII::get_Baudrate() const {
  return control_->Baudrate;
}
void ModulInfoFLII::put_Baudrate(std::int32_t value) {
  if (value != control_->Baudrate) {
    control_->Baudrate = value;
    control_->panel.ComboBaudrate.setText(decimalText(value));
  }
}

std::int32_t ModulInfoFLII::get_MaxBaudrate() const {
  return control_->MaxBaudrate;
}

Variant ModulInfoFLII::get_AppPathString() const {
  return control_->AppPathString;
}
void ModulInfoFLII::put_AppPathString(const Variant& value) {
  control_->AppPathString = control_->asText(value);
}

std::int16_t ModulInfoFLII::get_Language() const {
  return control_->Language;
}
void ModulInfoFLII::put_Language(std::int16_t value) {
  control_->Language = value;
}

Variant ModulInfoFLII::get_StatusString() const {
  return control_->StatusString;
}
void ModulInfoFLII::put_StatusString(const Variant& value) {
  control_->setStatus(control_->asText(value));
}

Variant ModulInfoFLII::get_ManufactureLogoString() const {
  return moduleWide().ManufactureLogoPath;
}

Variant ModulInfoFLII::get_DevicePictureString() const {
  return moduleWide().DevicePicturePath;
}

std::int32_t ModulInfoFLII::get_StringsReverse() const {
  return control_->StringsReverse;
}
std::int32_t ModulInfoFLII::get_NFCReader() const {
  return control_->bNFCReader ? 1 : 0;
}
std::u16string ModulInfoFLII::get_GetNFCMCURevison() const {
  return control_->sNFCMCURevision;
}
std::int32_t ModulInfoFLII::get_QuickSetupMode() const {
  return control_->QuickSetupMode;
}

std::int32_t ModulInfoFLII::get_QuickSetup() const {
  return control_->bQuickSetup ? 1 : 0;
}
void ModulInfoFLII::put_QuickSetup(std::int32_t value) {
  control_->bQuickSetup = value == 1;
}

bool ModulInfoFLII::get_DataTrafic() {
  control_->raise(&HostEvents::DataTransfer);
  return false;
}

}  // namespace tessara
