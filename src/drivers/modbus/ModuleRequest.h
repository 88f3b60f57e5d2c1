#pragma once

#include <cstdint>
#include <string>

#include "drivers/modbus/ModbusCodec.h"

namespace tessara {

/// The name of a request in messages: "identification at address 192".
std::string identificationText(std::int16_t address);

/// The name of a request in messages: "input registers 5..8 at address 192".
std::string registersText(std::int16_t address, std::int32_t start, std::int16_t count);

/// The request for these numbers. Throws std::out_of_range, which says what is wrong, if `address`
/// is not 1 to 247, `count` not 1 to 125, or a register number not 0 to 65535.
ModbusRequest identificationRequest(std::int16_t address);
ModbusRequest registersRequest(std::int16_t address, std::int32_t start, std::int16_t count);

}  // namespace tessara
