#pragma once

#include <cstdint>

#include "simulator/ModbusCodec.h"
#include "simulator/SimulatedModule.h"

namespace tessara::testing {

/// A module with a few registers, at the default address.
inline SimulatedModule sampleModule() {
  SimulatedModule module;
  module.identification = {49, 2, 15, 0x8097};
  module.registers = {{3, 0x1000}, {4, 0x1234}, {100, 0}};
  return module;
}

inline Bytes readRequest(std::uint16_t first, std::uint16_t count,
                         std::uint8_t address = defaultAddress) {
  return modbusFrame(
      address, readInputRegistersFunction,
      Bytes{static_cast<std::uint8_t>(first >> 8), static_cast<std::uint8_t>(first),
            static_cast<std::uint8_t>(count >> 8), static_cast<std::uint8_t>(count)});
}

inline Bytes serverIdRequest(std::uint8_t address = defaultAddress) {
  return modbusFrame(address, reportServerIdFunction);
}

/// The answer of a healthy sample module to readRequest(4, 1).
inline Bytes firmwareAnswer(std::uint8_t address = defaultAddress) {
  return modbusFrame(address, readInputRegistersFunction, Bytes{2, 0x12, 0x34});
}

}  // namespace tessara::testing
