#include <exception>

#include "control/ModulInfoFLII.h"

namespace tessara {

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

void ModulInfoFLII::waitForConnectionToFall() {
  while (DeviceConnected) {
    platform_.eventLoop().yield();
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
  setScanTimer(false);
  ScanEnabled = false;
  raiseModulActive(activity);
}

}  // namespace tessara
