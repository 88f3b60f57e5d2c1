#pragma once

#include "simulator/JsonNode.h"
#include "simulator/nfc/SimulatedField.h"

namespace tessara {

/// The module with a tag that a module file describes: all that a Modbus module has, and beside it
/// "uid" and "readerFaults". Throws ModuleFileError.
SimulatedNfcModule readNfcModule(const JsonNode& root);

}  // namespace tessara
