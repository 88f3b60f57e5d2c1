#pragma once

#include "json/JsonReader.h"
#include "simulator/nfc/SimulatedField.h"

namespace tessara {

/// The module with a tag that a module file describes: all that a Modbus module has, and
/// "uid" and "readerFaults". Throws JsonError.
SimulatedNfcModule readNfcModule(const JsonReader& root);

}  // namespace tessara
