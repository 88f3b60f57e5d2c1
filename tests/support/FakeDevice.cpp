#include "FakeDevice.h"

#include <stdexcept>

namespace tessara::testing {

void FakeDevice::enter(const std::string& entry) {
  log.add(entry);
  before(entry);
}

bool FakeDevice::connect(std::int16_t comPort, std::int32_t baudrate) {
  enter("ConnectWithSerialDevice(" + std::to_string(comPort) + ", " + std::to_string(baudrate) +
        ")");
  return connects;
}

DeviceWords FakeDevice::readIdentifier(std::uint8_t devAddr) {
  enter("ReadDeviceIdentifier(" + std::to_string(devAddr) + ")");
  DeviceWords words = identifier;
  change(words);
  return words;
}

DeviceWords FakeDevice::readRegisters(std::int16_t slave, std::int32_t start, std::int16_t count,
                                      std::int32_t access) {
  enter("ReadInputRegisters(" + std::to_string(slave) + ", " + std::to_string(start) + ", " +
        std::to_string(count) + ", " + std::to_string(access) + ")");
  const auto found = registers.find(start);
  if (found == registers.end()) {
    throw std::runtime_error("the fake module has no register " + std::to_string(start));
  }
  DeviceWords words = found->second;
  change(words);
  return words;
}

std::int16_t FakeDevice::command48(Cmd48Reply& reply) {
  enter("CMD48");
  reply = cmd48Reply;
  return cmd48Count;
}

void FakeDevice::close() {
  enter("CloseSerialConnection");
}

}  // namespace tessara::testing
