#include "Outputs.h"

#include <iostream>

namespace tessara {

ExitCode fail(ExitCode code, const std::string& message) {
  std::cerr << "modulinfo-panel: " << message << '\n';
  return code;
}

ExitCode writeReportOf(const RecordSheet& sheet, const PanelRequest& request) {
  if (request.report.empty()) {
    return ExitCode::Done;
  }
  try {
    writeReport(sheet, QString::fromStdString(request.report));
  } catch (const RecordError& error) {
    return fail(ExitCode::Failed, error.what());
  }
  return ExitCode::Done;
}

ExitCode drawWindow(QWidget& window, const PanelRequest& request) {
  if (request.screenshot.empty() ||
      window.grab().save(QString::fromStdString(request.screenshot), "PNG")) {
    return ExitCode::Done;
  }
  return fail(ExitCode::Failed, request.screenshot + " cannot be written");
}

}  // namespace tessara
