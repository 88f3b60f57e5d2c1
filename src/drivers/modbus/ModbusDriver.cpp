#include "drivers/modbus/ModbusDriver.h"

#include "drivers/PortOpening.h"
#include "drivers/ReadError.h"
#include "drivers/modbus/ModuleRequest.h"

namespace tessara {

ModbusDriver::ModbusDriver(const PortDirectory& ports, const ModbusTimings& timings)
    : ports_(ports), link_(timings) {}

void ModbusDriver::ShutDown() {
  link_.close();
}

bool ModbusDriver::ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& baudrate) {
  link_.close();
  PortOpening opening(ports_, comPort);
  failure_ = opening.failureOf(
      [this, baudrate](const std::string& device) { link_.open(device, baudrate); });
  port_ = opening.port();
  return failure_.empty();
}

DeviceWords ModbusDriver::ReadDeviceIdentifier(std::uint8_t& devAddr) {
  return readFrom(port_, identificationText(devAddr),
                  [&] { return identificationOf(link_.ask(identificationRequest(devAddr))); });
}

DeviceWords ModbusDriver::ReadInputRegisters(std::int16_t slave, std::int32_t startAddress,
                                             std::int16_t count, std::int32_t /*access*/) {
  return readFrom(port_, registersText(slave, startAddress, count),
                  [&] { return wordsOf(link_.ask(registersRequest(slave, startAddress, count))); });
}

std::int16_t ModbusDriver::CMD48(Cmd48Reply& /*reply*/) {
  return 0;
}

void ModbusDriver::CloseSerialConnection() {
  link_.close();
}

}  // namespace tessara
