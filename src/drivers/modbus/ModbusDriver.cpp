#include "drivers/modbus/ModbusDriver.h"

#include <exception>
#include <stdexcept>

#include "drivers/PortText.h"
#include "drivers/ReadError.h"
#include "drivers/modbus/ModbusCodec.h"
#include "drivers/modbus/ModbusFault.h"

namespace tessara {

namespace {

constexpr std::int16_t kLastUnit = 247;
constexpr std::int32_t kRegisterCount = 65536;
constexpr std::int16_t kMostRegisters = 125;

std::string unitText(std::int16_t unit) {
  return " of unit " + std::to_string(unit);
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

/// The words that `read` gives; whatever goes wrong in it becomes a ReadError.
template <class Read>
DeviceWords wordsFrom(const std::string& port, const std::string& request, Read read) {
  try {
    return read();
  } catch (const std::exception& error) {
    throw ReadError(port, request, error.what());
  }
}

}  // namespace

ModbusDriver::ModbusDriver(const PortDirectory& ports, const ModbusTimings& timings)
    : ports_(ports), link_(timings) {}

void ModbusDriver::ShutDown() {
  link_.close();
}

bool ModbusDriver::ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& baudrate) {
  link_.close();
  failure_.clear();
  port_ = portText(comPort);
  try {
    const auto device = ports_.deviceOf(comPort);
    if (!device) {
      throw PortError::fromErrno(ENODEV);
    }
    port_ = portText(comPort, *device);
    link_.open(*device, baudrate);
  } catch (const PortError& error) {
    failure_ = port_ + " " + error.what();
  } catch (const std::exception& error) {
    failure_ = port_ + " cannot be opened: " + error.what();
  }
  return failure_.empty();
}

DeviceWords ModbusDriver::ReadDeviceIdentifier(std::uint8_t& devAddr) {
  return wordsFrom(port_, "identification" + unitText(devAddr), [&] {
    return identificationOf(link_.ask(ModbusRequest::identification(checkedUnit(devAddr))));
  });
}

DeviceWords ModbusDriver::ReadInputRegisters(std::int16_t slave, std::int32_t startAddress,
                                             std::int16_t count, std::int32_t /*access*/) {
  return wordsFrom(port_, registersText(slave, startAddress, count), [&] {
    return wordsOf(link_.ask(registersRequest(slave, startAddress, count)));
  });
}

std::int16_t ModbusDriver::CMD48(Cmd48Reply& /*reply*/) {
  throw ReadError(port_, "HART command 48", "modules on a Modbus line know no HART commands");
}

void ModbusDriver::CloseSerialConnection() {
  link_.close();
}

}  // namespace tessara
