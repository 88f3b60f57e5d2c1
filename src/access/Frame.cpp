#include <exception>
#include <utility>

#include "access/RegisterDecoding.h"
#include "control/ModulInfoFLII.h"

namespace tessara {

CommunicationObject& ModulInfoFLII::comm() const {
  return live(CommObject, "CommObject");
}

bool ModulInfoFLII::connect() {
  DeviceConnected = CommObject && CommObject->ConnectWithSerialDevice(ComPort, Baudrate);
  return DeviceConnected;
}

void ModulInfoFLII::closeConnection() {
  if (CommObject) {
    CommObject->CloseSerialConnection();
  }
  DeviceConnected = false;
}

void ModulInfoFLII::closeAfterFailure() {
  try {
    closeConnection();
  } catch (const std::exception&) {
    // The access has failed already, and the host is told so; a port that cannot even be closed is
    // as closed as it will be.
    DeviceConnected = false;
  }
}

void ModulInfoFLII::stopScan() {
  setScanTimer(false);
  ScanEnabled = false;
}

void ModulInfoFLII::showModulState(std::u16string text) {
  panel.LblModulState.setCaption(std::move(text));
  panel.LblModulState.setToolTipTitle(moduleWide().TextModulInfo[21]);
  panel.LblModulState.setToolTipText(panel.LblModulState.caption());
}

void ModulInfoFLII::showChnState(std::u16string text) {
  panel.LblChnState.setCaption(std::move(text));
  panel.LblChnState.setToolTipTitle(moduleWide().TextModulInfo[22]);
  panel.LblChnState.setToolTipText(panel.LblChnState.caption());
}

void ModulInfoFLII::storeIdentification(const DeviceWords& words) {
  VendorID = wordOf(words, 0);
  GroupID = wordOf(words, 1);
  FamilyID = wordOf(words, 2);
  DeviceID = wordOf(words, 3);
}

}  // namespace tessara
