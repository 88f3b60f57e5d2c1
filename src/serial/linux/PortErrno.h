#pragma once

#include "serial/PortError.h"

namespace tessara {

/// What errno value `error` means to a program that wants to open a serial port.
PortError portErrorOf(int error);

}  // namespace tessara
