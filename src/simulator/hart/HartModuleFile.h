#pragma once

#include <string_view>

#include "json/JsonReader.h"
#include "simulator/ModbusCodec.h"
#include "simulator/hart/SimulatedHartModule.h"

namespace tessara {

/// The module behind a HART modem that the contents of a module file describe; docs/simulator.md
/// has the format. Throws JsonError if they hold anything unknown.
SimulatedHartModule readHartModule(const JsonReader& root);

/// Four characters in three bytes: the low six bits of each. Lower case becomes upper case, and a
/// text whose length is not a multiple of four is padded with blanks.
Bytes packedHartText(std::string_view text);

}  // namespace tessara
