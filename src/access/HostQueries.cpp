#include <exception>

#include "access/RegisterDecoding.h"
#include "control/ModulInfoFLII.h"
#include "knowledge/ChannelStatus.h"
#include "knowledge/Conversions.h"
#include "knowledge/ModuleStatus.h"

namespace tessara {
namespace {

/// What CheckDeviceType gives.
constexpr std::int32_t deviceDiffers = 0;
constexpr std::int32_t deviceFits = 1;
constexpr std::int32_t queryFailed = 3;

}  // namespace

std::int32_t ModulInfoFLII::get_CheckDeviceType() {
  ScanEnabled = panel.TimerScanDevice.enabled();
  setScanTimer(false);
  try {
    raiseModulActive(Activity::Busy);
    connect();
    setStatus(moduleWide().TextModulInfo[13]);
    if (!DeviceConnected) {
      failedToConnect();
      return deviceDiffers;
    }
    const DeviceWords record = comm().ReadDeviceIdentifier(DevAddr);
    (void)elementOf(record, 0);
    (void)elementOf(record, 1);
    const std::int16_t family = wordOf(record, 2);
    const std::int16_t device = wordOf(record, 3);
    const double version = RoundToThreeDecimals(readFirmwareVersion());
    closeConnection();
    raiseModulActive(Activity::AccessOver);
    const bool fits =
        family == FamilyID && device == DeviceID &&
        static_cast<float>(RoundToThreeDecimals(FirmwareVers)) == static_cast<float>(version);
    setScanTimer(ScanEnabled);
    return fits ? deviceFits : deviceDiffers;
  } catch (const std::exception&) {
    failedQuery(Activity::ConnectionFailed);
    return queryFailed;
  }
}

void ModulInfoFLII::GetFWVersion() {
  try {
    raiseModulActive(Activity::Busy);
    waitForConnectionToFall();
    connect();
    setStatus(moduleWide().TextModulInfo[13]);
    if (!DeviceConnected) {
      failedToConnect();
      return;
    }
    takeFirmwareVersion();
    closeConnection();
    raiseModulActive(Activity::AccessOver);
  } catch (const std::exception&) {
    failedQuery(Activity::AccessOver);
  }
}

void ModulInfoFLII::GetDeviceInformation() {
  try {
    raiseModulActive(Activity::Busy);
    waitForConnectionToFall();
    connect();
    setStatus(moduleWide().TextModulInfo[13]);
    if (!DeviceConnected) {
      failedToConnect();
      return;
    }
    storeIdentification(comm().ReadDeviceIdentifier(DevAddr));
    closeConnection();
    raiseModulActive(Activity::AccessOver);
  } catch (const std::exception&) {
    failedQuery(Activity::AccessOver);
  }
}

void ModulInfoFLII::GetDeviceStatus() {
  raiseModulActive(Activity::Busy);
  yield();
  try {
    connect();
    setStatus(moduleWide().TextModulInfo[13]);
    if (!DeviceConnected) {
      failedToConnect();
      return;
    }
    readModuleWords();
    setStatus({});
    panel.ImageDevState.setPicture(pictureOther);
    showModuleWords();
    StatusWord = wordOf(readWords(RegChnIn, 1), 0);
    const std::int16_t output = wordOf(readWords(RegChnOut, 1), 0);
    showChnState(DecodeChannelStatus(StatusWord, output, bNFCReader, FamilyID, moduleWide()));
    panel.ImageDevState.setVisible(true);
    closeConnection();
    raiseModulActive(Activity::AccessOver);
  } catch (const std::exception&) {
    setStatus(moduleWide().TextModulInfo[14]);
    closeAfterFailure();
    raiseModulActive(Activity::ConnectionFailed);
  }
}

void ModulInfoFLII::CmdStoreParameter_Click() {
  const std::int32_t result = get_CheckDeviceType();
  if (result == deviceFits) {
    raise(&HostEvents::SetConfiguration);
  } else if (result == deviceDiffers) {
    showMessage(moduleWide().TextModulInfo[20], MessageStyle::Error);
  }
}

void ModulInfoFLII::waitForConnectionToFall() {
  while (DeviceConnected && initialized_) {
    yield();
  }
}

void ModulInfoFLII::failedToConnect() {
  setStatus(moduleWide().TextModulInfo[14]);
  closeConnection();
  raiseModulActive(Activity::ConnectionFailed);
}

void ModulInfoFLII::failedQuery(Activity activity) {
  setStatus(moduleWide().TextModulInfo[14]);
  closeAfterFailure();
  stopScan();
  raiseModulActive(activity);
}

}  // namespace tessara
