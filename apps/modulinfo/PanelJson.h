#pragma once

#include <span>
#include <string>

#include "control/ModulInfoFLII.h"
#include "drivers/TracedObject.h"

namespace tessara {

/// The panel as one JSON object in UTF-8, over several lines and with a line end behind it. The
/// keys are those of docs/command-line.md; "trace" is there only if `trace` is not null.
std::string panelJson(const ModulInfoFLII& control, const std::vector<DeviceCall>* trace);

}  // namespace tessara
