#pragma once

#include "PanelRequest.h"
#include "common/ExitCode.h"

namespace tessara {

/// Shows the panel or the record until its window is closed, or writes the picture and the report
/// that were asked for and is done. Needs the QApplication. What goes wrong before there is a
/// window is told on standard error.
ExitCode runPanel(const PanelRequest& request);

}  // namespace tessara
