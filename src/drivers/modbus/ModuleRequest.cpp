#include "drivers/modbus/ModuleRequest.h"

#include <stdexcept>

namespace tessara {

namespace {

constexpr std::int16_t kLastUnit = 247;
constexpr std::int32_t kRegisterCount = 65536;
constexpr std::int16_t kMostRegisters = 125;

std::string unitText(std::int16_t unit) {
  return " of unit " + std::to_string(unit);
}

/// A module's address, or an exception that says why `unit` is none.
std::uint8_t checkedUnit(std::int16_t unit) {
  if (unit == 0) {
    throw std::out_of_range("address 0 calls all modules and is answered by none");
  }
  if (unit < 0 || unit > kLastUnit) {
    throw std::out_of_range("a module has an address from 1 to 247");
  }
  return static_cast<std::uint8_t>(unit);
}

}  // namespace

std::string identificationText(std::int16_t unit) {
  return "identification" + unitText(unit);
}

std::string registersText(std::int16_t unit, std::int32_t start, std::int16_t count) {
  if (count == 1) {
    return "input register " + std::to_string(start) + unitText(unit);
  }
  if (count < 1) {
    return "input registers from " + std::to_string(start) + unitText(unit);
  }
  const std::int64_t last = std::int64_t{start} + count - 1;
  return "input registers " + std::to_string(start) + ".." + std::to_string(last) + unitText(unit);
}

ModbusRequest identificationRequest(std::int16_t unit) {
  return ModbusRequest::identification(checkedUnit(unit));
}

ModbusRequest registersRequest(std::int16_t unit, std::int32_t start, std::int16_t count) {
  const std::uint8_t address = checkedUnit(unit);
  if (count < 1 || count > kMostRegisters) {
    throw std::out_of_range("1 to 125 registers can be read at a time, not " +
                            std::to_string(count));
  }
  if (start < 0 || start > kRegisterCount - count) {
    throw std::out_of_range("registers have the numbers 0 to 65535");
  }
  return ModbusRequest::inputRegisters(address, static_cast<std::uint16_t>(start),
                                       static_cast<std::uint8_t>(count));
}

}  // namespace tessara
