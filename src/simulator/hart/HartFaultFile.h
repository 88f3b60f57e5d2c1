#pragma once

#include "simulator/JsonNode.h"
#include "simulator/hart/HartEffect.h"

namespace tessara {

/// One entry of the list of faults in the file of a module behind a HART modem. Throws
/// ModuleFileError.
HartMisbehaviour readHartFault(const JsonNode& node);

}  // namespace tessara
