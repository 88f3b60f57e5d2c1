#pragma once

#include <string_view>

#include "json/JsonReader.h"
#include "simulator/ModbusCodec.h"
#include "simulator/hart/SimulatedHartModule.h"

namespace tessara {

/// The module behind a HART modem that the contents of a module file describe; docs/simulator.md
/// tells the format. Throws JsonError if they hold anything that is not understood.
SimulatedHartModule readHartModule(const JsonReader& root);

/// Four characters in three bytes: the low six bits of each. Lower case becomes upper case, and a
/// text of odd length is filled up with blanks.
Bytes packedHartText(std::string_view text);

}  // namespace tessara
