#include <limits>
#include <utility>

#include "base/Text.h"
#include "control/ModulInfoFLII.h"

namespace tessara {

std::int32_t ModulInfoFLII::get_DeviceID() const {
  return DeviceID;
}
void ModulInfoFLII::put_DeviceID(std::int32_t value) {
  DeviceID = narrowToInt16(value, "DeviceID");
}

std::int32_t ModulInfoFLII::get_FamilyID() const {
  return FamilyID;
}
void ModulInfoFLII::put_FamilyID(std::int32_t value) {
  FamilyID = narrowToInt16(value, "FamilyID");
}

double ModulInfoFLII::get_FirmwareVers() const {
  return FirmwareVers;
}
void ModulInfoFLII::put_FirmwareVers(double value) {
  if (value > std::numeric_limits<float>::max() || value < std::numeric_limits<float>::lowest()) {
    throw RunTimeError(ErrorNumber::Overflow, "FirmwareVers: " + toUtf8(numberText(value, u".")) +
                                                  " is outside the range of a 32-bit float");
  }
  FirmwareVers = static_cast<float>(value);
}

Variant ModulInfoFLII::get_DeviceName() const {
  return DeviceName;
}
void ModulInfoFLII::put_DeviceName(const Variant& value) {
  DeviceName = asText(value);
}

Variant ModulInfoFLII::get_CmdLineString() const {
  return CmdLineString;
}
void ModulInfoFLII::put_CmdLineString(const Variant& value) {
  CmdLineString = asText(value);
}

Variant ModulInfoFLII::get_FwVersion() const {
  return FwVersion;
}

Variant ModulInfoFLII::get_SerialNumber() const {
  const auto* number = std::get_if<std::uint64_t>(&SerialNumber);
  return number == nullptr ? std::uint64_t{0} : *number;
}

Variant ModulInfoFLII::get_PackbLink() const {
  return PackbLink;
}
void ModulInfoFLII::put_PackbLink(const Variant& value) {
  PackbLink = asText(value);
}

Variant ModulInfoFLII::get_ProductLink() const {
  return ProductLink;
}
void ModulInfoFLII::put_ProductLink(const Variant& value) {
  ProductLink = asText(value);
}

Variant ModulInfoFLII::get_DatasheetLink() const {
  return DatasheetLink;
}
void ModulInfoFLII::put_DatasheetLink(const Variant& value) {
  DatasheetLink = asText(value);
}

Variant ModulInfoFLII::get_VersionString() const {
  return VersionString;
}
void ModulInfoFLII::put_VersionString(const Variant& value) {
  VersionString = asText(value);
}

std::uint8_t ModulInfoFLII::get_DevAddr() const {
  return DevAddr;
}

CommunicationObject* ModulInfoFLII::get_CommunicationObject() const {
  return CommunicationObject.get();
}

std::int32_t ModulInfoFLII::get_DataValid() const {
  if (OfflineMode) {
    return 2;
  }
  return bDataValid ? 1 : 0;
}

void ModulInfoFLII::put_DataValid(std::int32_t value) {
  bDataValid = value != 0;
  if (value == 0) {
    OfflineMode = false;
  }
}

std::int32_t ModulInfoFLII::get_DeviceConnected() const {
  return DeviceConnected ? 1 : 0;
}
void ModulInfoFLII::put_DeviceConnected(std::int32_t value) {
  DeviceConnected = value == 1;
}

std::int32_t ModulInfoFLII::get_ComPort() const {
  return ComPort;
}
void ModulInfoFLII::put_ComPort(std::int32_t value) {
  ComPort = narrowToInt16(value, "ComPort");
}

std::int32_t ModulInfoFLII::get_DataBits() const {
  return DataBits;
}
std::int32_t ModulInfoFLII::get_StopBits() const {
  return StopBits;
}
std::int32_t ModulInfoFLII::get_Parity() const {
  return Parity;
}

std::int32_t ModulInfoFLII::get_Baudrate() const {
  return Baudrate;
}
void ModulInfoFLII::put_Baudrate(std::int32_t value) {
  if (value != Baudrate) {
    Baudrate = value;
    panel.ComboBaudrate.setText(decimalText(value));
  }
}

std::int32_t ModulInfoFLII::get_MaxBaudrate() const {
  return MaxBaudrate;
}

Variant ModulInfoFLII::get_AppPathString() const {
  return AppPathString;
}
void ModulInfoFLII::put_AppPathString(const Variant& value) {
  AppPathString = asText(value);
}

std::int16_t ModulInfoFLII::get_Language() const {
  return Language;
}
void ModulInfoFLII::put_Language(std::int16_t value) {
  Language = value;
}

Variant ModulInfoFLII::get_StatusString() const {
  return StatusString;
}
void ModulInfoFLII::put_StatusString(const Variant& value) {
  setStatus(asText(value));
}

Variant ModulInfoFLII::get_ManufactureLogoString() const {
  return moduleWide().ManufactureLogoPath;
}

Variant ModulInfoFLII::get_DevicePictureString() const {
  return moduleWide().DevicePicturePath;
}

std::int32_t ModulInfoFLII::get_StringsReverse() const {
  return StringsReverse;
}
std::int32_t ModulInfoFLII::get_NFCReader() const {
  return bNFCReader ? 1 : 0;
}
std::u16string ModulInfoFLII::get_GetNFCMCURevison() const {
  return sNFCMCURevision;
}
std::int32_t ModulInfoFLII::get_QuickSetupMode() const {
  return QuickSetupMode;
}

std::int32_t ModulInfoFLII::get_QuickSetup() const {
  return bQuickSetup ? 1 : 0;
}
void ModulInfoFLII::put_QuickSetup(std::int32_t value) {
  bQuickSetup = value == 1;
}

bool ModulInfoFLII::get_DataTrafic() {
  raise(&HostEvents::DataTransfer);
  return false;
}

}  // namespace tessara
