#pragma once

#include "ExitCode.h"
#include "PanelRequest.h"

namespace tessara {

/// Shows the panel until its window is closed, or draws it into a file and is done. Needs the
/// QApplication. What goes wrong before there is a window is told on standard error.
ExitCode showPanel(const PanelRequest& request);

}  // namespace tessara
