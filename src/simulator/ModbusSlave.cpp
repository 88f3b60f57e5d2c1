#include "simulator/ModbusSlave.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace tessara {

namespace {

constexpr std::size_t readArgumentLength = 4;  // first register, count
constexpr std::size_t maxRegisters = 125;
constexpr std::size_t maxRegister = 0xFFFF;
constexpr std::uint8_t serverId = 0x01;
constexpr std::uint8_t runIndicatorOn = 0xFF;

std::size_t wordAt(const Bytes& bytes, std::size_t index) {
  return static_cast<std::size_t>(bytes[index]) << 8 | bytes[index + 1];
}

void appendWord(Bytes& bytes, std::uint16_t word) {
  bytes.push_back(static_cast<std::uint8_t>(word >> 8));
  bytes.push_back(static_cast<std::uint8_t>(word & 0xFF));
}

/// The data of an answer that begins with the count of its own bytes.
Bytes counted(const Bytes& contents) {
  Bytes bytes{static_cast<std::uint8_t>(contents.size())};
  bytes.insert(bytes.end(), contents.begin(), contents.end());
  return bytes;
}

}  // namespace

ModbusSlave::ModbusSlave(SimulatedModule module)
    : module_(std::move(module)), plan_(std::exchange(module_.faults, {})) {
  if (module_.address == 0 || module_.address > maxAddress) {
    throw std::invalid_argument("a module has an address from 1 to " + std::to_string(maxAddress) +
                                ", not " + std::to_string(module_.address));
  }
}

SimulatedAnswer ModbusSlave::answer(const MasterRequest& request) {
  return plan_.spoil(request, healthyAnswer(request));
}

void ModbusSlave::setFaults(std::vector<Fault> faults) {
  plan_ = FaultPlan(std::move(faults));
}

void ModbusSlave::setRegister(std::uint16_t number, std::uint16_t word) {
  module_.registers[number] = word;
}

Bytes ModbusSlave::healthyAnswer(const MasterRequest& request) const {
  switch (request.function) {
    case readInputRegistersFunction:
      return readInputRegisters(request);
    case reportServerIdFunction:
      return reportServerId();
    default:
      return refuse(request, ModbusException::IllegalFunction);
  }
}

Bytes ModbusSlave::readInputRegisters(const MasterRequest& request) const {
  if (request.data.size() != readArgumentLength) {
    return refuse(request, ModbusException::IllegalDataValue);
  }
  const std::size_t first = wordAt(request.data, 0);
  const std::size_t count = wordAt(request.data, 2);
  if (count == 0 || count > maxRegisters) {
    return refuse(request, ModbusException::IllegalDataValue);
  }
  Bytes words;
  for (std::size_t number = first; number < first + count; ++number) {
    const auto found = number <= maxRegister
                           ? module_.registers.find(static_cast<std::uint16_t>(number))
                           : module_.registers.end();
    if (found == module_.registers.end()) {
      return refuse(request, ModbusException::IllegalDataAddress);
    }
    appendWord(words, found->second);
  }
  return modbusFrame(address(), request.function, counted(words));
}

Bytes ModbusSlave::reportServerId() const {
  Bytes contents{serverId, runIndicatorOn};
  for (const std::uint16_t word : module_.identification) appendWord(contents, word);
  return modbusFrame(address(), reportServerIdFunction, counted(contents));
}

Bytes ModbusSlave::refuse(const MasterRequest& request, ModbusException code) const {
  return modbusExceptionFrame(address(), request.function, static_cast<std::uint8_t>(code));
}

}  // namespace tessara
