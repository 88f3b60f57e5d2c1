#include <exception>
#include <functional>

#include "access/RegisterDecoding.h"
#include "access/StatusAccess.h"
#include "control/Control.h"
#include "control/ModulInfoFLII.h"
#include "knowledge/Conversions.h"

namespace tessara {
namespace {

/// Results of CheckDeviceType.
constexpr std::int32_t deviceDiffers = 0;
constexpr std::int32_t deviceFits = 1;
constexpr std::int32_t queryFailed = 3;

}  // namespace

bool Control::connectAndRead(const std::function<void()>& read) {
  connect();
  setStatus(moduleWide().TextModulInfo[13]);
  if (!DeviceConnected) {
    setStatus(moduleWide().TextModulInfo[14]);
    closeConnection();
    raiseModulActive(Activity::ConnectionFailed);
    return false;
  }
  read();
  closeConnection();
  raiseModulActive(Activity::AccessOver);
  return true;
}

std::int32_t Control::checkDeviceType() {
  ScanEnabled = panel.TimerScanDevice.enabled();
  setScanTimer(false);
  try {
    raiseModulActive(Activity::Busy);
    std::int16_t family = 0;
    std::int16_t device = 0;
    double version = 0;
    const bool bRead = connectAndRead([&] {
      const DeviceWords record = comm().ReadDeviceIdentifier(DevAddr);
      (void)elementOf(record, 0);
      (void)elementOf(record, 1);
      family = wordOf(record, 2);
      device = wordOf(record, 3);
      version = RoundToThreeDecimals(readVersion(registers::firmwareVersion));
    });
    if (!bRead) {
      return deviceDiffers;
    }
    const bool bFits =
        family == FamilyID && device == DeviceID &&
        static_cast<float>(RoundToThreeDecimals(FirmwareVers)) == static_cast<float>(version);
    setScanTimer(ScanEnabled);
    return bFits ? deviceFits : deviceDiffers;
  } catch (const std::exception&) {
    failedQuery(Activity::ConnectionFailed, true);
    return queryFailed;
  }
}

void Control::waitAndRead(const std::function<void()>& read) {
  try {
    raiseModulActive(Activity::Busy);
    while (DeviceConnected && initialized_) {
      yield();
    }
    connectAndRead(read);
  } catch (const std::exception&) {
    failedQuery(Activity::AccessOver, true);
  }
}

std::int32_t ModulInfoFLII::get_CheckDeviceType() {
  return control_->checkDeviceType();
}

void ModulInfoFLII::GetFWVersion() {
  control_->waitAndRead([this] { control_->takeFirmwareVersion(); });
}

void ModulInfoFLII::GetDeviceInformation() {
  control_->waitAndRead([this] {
    control_->storeIdentification(control_->comm().ReadDeviceIdentifier(control_->DevAddr));
  });
}

void ModulInfoFLII::GetDeviceStatus() {
  control_->raiseModulActive(Activity::Busy);
  control_->yield();
  try {
    control_->connectAndRead([this] {
      control_->readRegisterStatus(statusOfQuery);
      control_->panel.ImageDevState.setVisible(true);
    });
  } catch (const std::exception&) {
    control_->failedQuery(Activity::ConnectionFailed, false);
  }
}

void Control::CmdStoreParameter_Click() {
  const std::int32_t result = checkDeviceType();
  if (result == deviceFits) {
    raise(&HostEvents::SetConfiguration);
  } else if (result == deviceDiffers) {
    showMessage(moduleWide().TextModulInfo[20], MessageStyle::Error);
  }
}

void Control::failedQuery(Activity activity, bool bStopsScan) {
  setStatus(moduleWide().TextModulInfo[14]);
  closeAfterFailure();
  if (bStopsScan) {
    stopScan();
  }
  raiseModulActive(activity);
}

}  // namespace tessara
