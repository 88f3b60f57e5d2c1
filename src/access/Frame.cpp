#include <exception>
#include <utility>

#include "access/RegisterDecoding.h"
#include "control/Control.h"

namespace tessara {
namespace {

/// The fourth argument of each read on the register path.
constexpr std::int32_t registerAccess = 2;

}  // namespace

CommunicationObject& Control::comm() const {
  return live(CommObject, "CommObject");
}

bool Control::connect() {
  DeviceConnected = CommObject && CommObject->ConnectWithSerialDevice(ComPort, Baudrate);
  return DeviceConnected;
}

void Control::closeConnection() {
  if (CommObject) {
    CommObject->CloseSerialConnection();
  }
  DeviceConnected = false;
}

void Control::closeAfterFailure() {
  try {
    closeConnection();
  } catch (const std::exception&) {
    // The access has failed already, and the host is told so. A port that cannot even be closed
    // counts as closed.
    DeviceConnected = false;
  }
}

DeviceWords Control::readWords(std::int32_t address, std::int16_t count) {
  return comm().ReadInputRegisters(DevAddr, address, count, registerAccess);
}

void Control::stopScan() {
  setScanTimer(false);
  ScanEnabled = false;
}

void Control::storeIdentification(const DeviceWords& words) {
  VendorID = wordOf(words, 0);
  GroupID = wordOf(words, 1);
  FamilyID = wordOf(words, 2);
  DeviceID = wordOf(words, 3);
}

}  // namespace tessara
