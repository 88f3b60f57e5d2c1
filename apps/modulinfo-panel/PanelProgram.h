#pragma once

#include "commandline/PanelRequest.h"
#include "common/ExitCode.h"

namespace tessara {

/// Shows the panel or the record until its window is closed, or writes the picture and the report
/// that were asked for. Needs the QApplication. What goes wrong before there is a window is printed
/// on standard error.
ExitCode runPanel(const PanelRequest& request);

}  // namespace tessara
