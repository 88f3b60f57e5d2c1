#pragma once

#include "json/JsonReader.h"
#include "simulator/hart/HartEffect.h"

namespace tessara {

/// One entry of the list of faults in the file of a module behind a HART modem. Throws
/// JsonError.
HartMisbehaviour readHartFault(const JsonReader& node);

}  // namespace tessara
