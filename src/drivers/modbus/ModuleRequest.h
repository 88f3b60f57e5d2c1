#pragma once

#include <cstdint>
#include <string>

#include "drivers/modbus/ModbusCodec.h"

namespace tessara {

/// How messages name a request: "identification of unit 192".
std::string identificationText(std::int16_t unit);

/// How messages name a request: "input registers 5..8 of unit 192".
std::string registersText(std::int16_t unit, std::int32_t start, std::int16_t count);

/// The request that a caller means, from the numbers that it gives. Throws std::out_of_range, which
/// says what is wrong, if `unit` is not 1 to 247, `count` not 1 to 125, or a register's number not
/// 0 to 65535. Nobody answers at address 0: it calls all modules.
ModbusRequest identificationRequest(std::int16_t unit);
ModbusRequest registersRequest(std::int16_t unit, std::int32_t start, std::int16_t count);

}  // namespace tessara
