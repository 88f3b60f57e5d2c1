#include <QApplication>
#include <cstdlib>
#include <exception>
#include <iostream>

#include "HostStyle.h"
#include "PanelProgram.h"
#include "commandline/CommandLine.h"

namespace {

/// Pictures and reports are made without a display, unless the environment names one.
void leaveDisplay() {
  constexpr int keep = 0;
  setenv("QT_QPA_PLATFORM", "offscreen", keep);
}

int run(int argc, char** argv) {
  const auto parsed = tessara::parsePanelCommandLine(argc, argv);
  if (const auto* code = std::get_if<tessara::ExitCode>(&parsed)) return static_cast<int>(*code);
  const auto& request = std::get<tessara::PanelRequest>(parsed);
  if (request.isUnattended()) leaveDisplay();
  const QApplication application(argc, argv);
  QApplication::setStyle(new tessara::HostStyle);
  QApplication::setApplicationName("modulinfo-panel");
  QApplication::setDesktopFileName("modulinfo-panel");
  return static_cast<int>(tessara::runPanel(request));
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "modulinfo-panel: " << error.what() << '\n';
  }
  return static_cast<int>(tessara::ExitCode::Failed);
}
