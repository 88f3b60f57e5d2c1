#pragma once

#include "simulator/Fault.h"
#include "simulator/JsonNode.h"

namespace tessara {

/// One entry of the list of faults in a module file. Throws ModuleFileError.
Fault readFault(const JsonNode& node);

}  // namespace tessara
