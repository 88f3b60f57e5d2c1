#pragma once

#include <QWidget>
#include <string>

#include "commandline/PanelRequest.h"
#include "common/ExitCode.h"
#include "report/RecordReport.h"

namespace tessara {

/// Prints what went wrong on standard error, and returns the code.
ExitCode fail(ExitCode code, const std::string& message);

/// Writes the report that was asked for, if one was.
ExitCode writeReportOf(const RecordSheet& sheet, const PanelRequest& request);

/// Draws the window into the picture that was asked for, if one was.
ExitCode drawWindow(QWidget& window, const PanelRequest& request);

/// The first of the two that is not done, or done.
inline ExitCode worse(ExitCode first, ExitCode second) {
  return first == ExitCode::Done ? second : first;
}

}  // namespace tessara
