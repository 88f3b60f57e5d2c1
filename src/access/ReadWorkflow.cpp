#include <exception>

#include "access/RegisterDecoding.h"
#include "access/StatusAccess.h"
#include "base/Text.h"
#include "control/Control.h"
#include "control/ModulInfoFLII.h"
#include "knowledge/Firmware.h"

namespace tessara {
namespace {

/// The rate of the one retry.
constexpr std::int32_t retryBaudrate = 115200;
/// A read that fails after more attempts than this is given up.
constexpr std::int16_t maxAttemptsBeforeRetry = 1;
/// The fourth argument of each read on the HART path.
constexpr std::int32_t hartAccess = 12;

}  // namespace

void ModulInfoFLII::AutomaticConnection() {
  if (control_->ReaderMissing) {
    control_->raiseModulActive(Activity::NoInterface);
    return;
  }
  control_->CmdDeviceInfo_Click();
}

void Control::CmdDeviceInfo_Click() {
  do {
    prepareRead();
  } while (!readModule() && mayRetryRead());
}

void Control::prepareRead() {
  setScanTimer(false);
  SetReadButton(false);
  SetStoreButton(false);
  SetOfflineButton(false);
  panel.ImageDevState.setVisible(false);
  setStatus({});
  bDataValid = false;
  ClearPanel();
  setStatus(moduleWide().TextModulInfo[15]);
}

bool Control::readModule() {
  bool bConnectFailed = false;
  try {
    raiseModulActive(Activity::Busy);
    // Store and Offline are already off, and are remembered as off.
    saveButtons();
    yield();
    bConnectFailed = !connect();
    if (!bConnectFailed) {
      ++ConnectAttempts;
      DevAddr = toByte(panel.txtDevAddr.text(), decimalSeparator());
      yield();
      readIdentification();
      if (readByVendor() != CatalogResult::CatalogFileError) {
        readStatusByVendor();
        finishRead();
        return true;
      }
    }
  } catch (const std::exception&) {
    // A silent module, a wrong address and an unreadable catalogue all end the same way.
  }
  // A complete read may still have failed to close.
  bDataValid = false;
  if (bConnectFailed) {
    ConnectAttempts = maxAttemptsBeforeRetry + 1;
    DeviceConnected = false;
  } else {
    closeAfterFailure();
  }
  return false;
}

void Control::readIdentification() {
  storeIdentification(comm().ReadDeviceIdentifier(DevAddr));
  panel.LblVendorID.setCaption(decimalText(std::int32_t{VendorID}));
  panel.LblGroupID.setCaption(decimalText(std::int32_t{GroupID}));
  panel.LblFamilyID.setCaption(decimalText(std::int32_t{FamilyID}));
  panel.LblDeviceID.setCaption(decimalText(std::int32_t{DeviceID}));
}

CatalogResult Control::readByVendor() {
  return VendorID == hartVendor ? readHartTexts() : readRegisters();
}

CatalogResult Control::readHartTexts() {
  const auto readText = [this](std::int32_t address) {
    constexpr std::int16_t hartSlave = 0;
    yield();
    return HartText(comm().ReadInputRegisters(hartSlave, address, 1, hartAccess));
  };
  FwVersion = readText(registers::hartFirmwareVersion);
  panel.LblFwVersion.setCaption(FwVersion);
  DeviceName = readText(registers::hartDeviceName);
  panel.LabelDeviceName.setCaption(DeviceName);
  panel.LblSerialNumber.setCaption(readText(registers::hartSerialNumber));
  return LookupDevice(FamilyID, DeviceID);
}

CatalogResult Control::readRegisters() {
  takeFirmwareVersion();
  SecondVersion = static_cast<float>(readVersion(registers::secondVersion));

  const DeviceWords serial = readWords(registers::serialNumber, registers::serialNumberWords);
  panel.LblSerialNumber.setCaption({});
  SerialNumber = SerialNumberOf(serial);
  panel.LblSerialNumber.setCaption(asText(SerialNumber));

  const CatalogResult found = LookupDevice(FamilyID, DeviceID);
  const bool bShowFirmware = HideFwVersion != 1;
  panel.LblFwVersion.setVisible(bShowFirmware);
  panel.LngLabel[4].setVisible(bShowFirmware);

  DeviceName.clear();
  DeviceName = NameText(readWords(registers::deviceName, registers::deviceNameWords));
  panel.LabelDeviceName.setCaption(DeviceName);
  return found;
}

double Control::readVersion(std::int32_t address) {
  return DecodeVersionWord(elementOf(readWords(address, 1), 0),
                           live(moduleWide().BitFieldHelper, "BitFieldHelper"));
}

void Control::takeFirmwareVersion() {
  FirmwareVers = static_cast<float>(readVersion(registers::firmwareVersion));
  panel.LblFwVersion.setCaption(VersionText(FirmwareVers, decimalSeparator()));
  FwVersion = panel.LblFwVersion.caption();
}

void Control::readStatusByVendor() {
  if (VendorID == hartVendor) {
    readHartStatus(statusOfRead);
  } else if (DevAddr == statusAddress) {
    readRegisterStatus(statusOfRead);
  } else {
    panel.LblModulState.setCaption({});
    panel.LblChnState.setCaption({});
  }
}

void Control::finishRead() {
  panel.ImageDevState.setVisible(true);
  bDataValid = true;
  closeConnection();
  raise(&HostEvents::StatusChange);
  SetReadButton(true);
  SetOfflineButton(true);
  raiseModulActive(Activity::AccessOver);
  raiseNfcReader();
  OfflineMode = false;
  setScanTimer(true);
  ScanEnabled = true;
  ConnectAttempts = 0;
}

bool Control::mayRetryRead() {
  if (ConnectAttempts <= maxAttemptsBeforeRetry) {
    // Not through the property: the list keeps showing the rate that the user chose.
    Baudrate = retryBaudrate;
    return true;
  }
  setStatus(moduleWide().TextModulInfo[14]);
  SetReadButton(true);
  SetStoreButton(false);
  SetReadButton(true);
  panel.CmdStoreParameter.setEnabled(SavedCmdEnabled[0]);
  SetOfflineButton(true);
  SetOpenButton(true);
  SetSaveButton(true);
  stopScan();
  ConnectAttempts = 0;
  raiseModulActive(Activity::ConnectionFailed);
  return false;
}

}  // namespace tessara
