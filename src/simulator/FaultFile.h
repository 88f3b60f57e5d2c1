#pragma once

#include "json/JsonReader.h"
#include "simulator/Fault.h"

namespace tessara {

/// One entry of the list of faults in a module file. Throws JsonError.
Fault readFault(const JsonReader& node);

}  // namespace tessara
