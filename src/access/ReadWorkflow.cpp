#include <exception>

#include "access/RegisterDecoding.h"
#include "base/Text.h"
#include "control/ModulInfoFLII.h"
#include "knowledge/Firmware.h"

namespace tessara {
namespace {

/// The rate of the one retry.
constexpr std::int32_t retryBaudrate = 115200;
/// More attempts than this and the read is given up.
constexpr std::int16_t attemptsWithRetry = 1;
/// What the read and the write sides of HART take for the register path's 2.
constexpr std::int32_t registerAccess = 2;
constexpr std::int32_t hartAccess = 12;

}  // namespace

void ModulInfoFLII::AutomaticConnection() {
  if (ReaderMissing) {
    raiseModulActive(Activity::NoInterface);
    return;
  }
  CmdDeviceInfo_Click();
}

void ModulInfoFLII::CmdDeviceInfo_Click() {
  do {
    prepareRead();
  } while (!readModule() && mayRetryRead());
}

void ModulInfoFLII::prepareRead() {
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

bool ModulInfoFLII::readModule() {
  bool bConnectFailed = false;
  try {
    raiseModulActive(Activity::Busy);
    // Store and Offline are off already, so that they are remembered as off.
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
    // A module that does not answer, a wrong address and an unreadable catalogue all end alike.
  }
  // A read that went through may still have failed to close.
  bDataValid = false;
  if (bConnectFailed) {
    ConnectAttempts = attemptsWithRetry + 1;
    DeviceConnected = false;
  } else {
    closeAfterFailure();
  }
  return false;
}

void ModulInfoFLII::readIdentification() {
  storeIdentification(comm().ReadDeviceIdentifier(DevAddr));
  panel.LblVendorID.setCaption(decimalText(std::int32_t{VendorID}));
  panel.LblGroupID.setCaption(decimalText(std::int32_t{GroupID}));
  panel.LblFamilyID.setCaption(decimalText(std::int32_t{FamilyID}));
  panel.LblDeviceID.setCaption(decimalText(std::int32_t{DeviceID}));
}

CatalogResult ModulInfoFLII::readByVendor() {
  return VendorID == hartVendor ? readHartTexts() : readRegisters();
}

CatalogResult ModulInfoFLII::readHartTexts() {
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

CatalogResult ModulInfoFLII::readRegisters() {
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

double ModulInfoFLII::readVersion(std::int32_t address) {
  return DecodeVersionWord(elementOf(readWords(address, 1), 0),
                           live(moduleWide().BitFieldHelper, "BitFieldHelper"));
}

double ModulInfoFLII::readFirmwareVersion() {
  return readVersion(registers::firmwareVersion);
}

void ModulInfoFLII::takeFirmwareVersion() {
  FirmwareVers = static_cast<float>(readFirmwareVersion());
  panel.LblFwVersion.setCaption(VersionText(FirmwareVers, decimalSeparator()));
  FwVersion = panel.LblFwVersion.caption();
}

DeviceWords ModulInfoFLII::readWords(std::int32_t address, std::int16_t count) {
  return comm().ReadInputRegisters(DevAddr, address, count, registerAccess);
}

void ModulInfoFLII::finishRead() {
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

bool ModulInfoFLII::mayRetryRead() {
  if (ConnectAttempts <= attemptsWithRetry) {
    // Written past the property: the list goes on showing the rate that the user chose.
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
