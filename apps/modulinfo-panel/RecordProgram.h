#pragma once

#include "commandline/PanelRequest.h"
#include "common/ExitCode.h"

namespace tessara {

/// Shows the record of the request until its window is closed, or writes what was asked for. No
/// control is brought up and no port is looked at.
ExitCode showRecord(const PanelRequest& request);

}  // namespace tessara
