#include "drivers/modbus/ModuleRequest.h"

#include <stdexcept>

namespace tessara {

namespace {

constexpr std::int16_t maxAddress = 247;
constexpr std::int32_t registerCount = 65536;
constexpr std::int16_t maxRegisters = 125;

std::string addressText(std::int16_t address) {
  return " at address " + std::to_string(address);
}

/// `address` as a byte, or an exception that says why it is not a module's.
std::uint8_t checkedAddress(std::int16_t address) {
  if (address == 0) {
    throw std::out_of_range("address 0 calls all modules and is answered by none");
  }
  if (address < 0 || address > maxAddress) {
    throw std::out_of_range("a module has an address from 1 to 247");
  }
  return static_cast<std::uint8_t>(address);
}

}  // namespace

std::string identificationText(std::int16_t address) {
  return "identification" + addressText(address);
}

std::string registersText(std::int16_t address, std::int32_t start, std::int16_t count) {
  if (count == 1) {
    return "input register " + std::to_string(start) + addressText(address);
  }
  if (count < 1) {
    return "input registers from " + std::to_string(start) + addressText(address);
  }
  const std::int64_t last = std::int64_t{start} + count - 1;
  return "input registers " + std::to_string(start) + ".." + std::to_string(last) +
         addressText(address);
}

ModbusRequest identificationRequest(std::int16_t address) {
  return ModbusRequest::identification(checkedAddress(address));
}

ModbusRequest registersRequest(std::int16_t address, std::int32_t start, std::int16_t count) {
  const std::uint8_t checked = checkedAddress(address);
  if (count < 1 || count > maxRegisters) {
    throw std::out_of_range("1 to 125 registers can be read at a time, not " +
                            std::to_string(count));
  }
  if (start < 0 || start > registerCount - count) {
    throw std::out_of_range("registers have the numbers 0 to 65535");
  }
  return ModbusRequest::inputRegisters(checked, static_cast<std::uint16_t>(start),
                                       static_cast<std::uint8_t>(count));
}

}  // namespace tessara
