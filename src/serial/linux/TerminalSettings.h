#pragma once

#include "serial/LineSettings.h"

namespace tessara {

/// Sets an open terminal as SerialLine::configure describes. Throws PortError.
void applySettings(int descriptor, const LineSettings& settings);

}  // namespace tessara
