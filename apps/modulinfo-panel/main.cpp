#include <QApplication>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "HostStyle.h"
#include "PanelProgram.h"
#include "common/ModuleOptions.h"

namespace {

constexpr const char* exitCodes =
    "Exit codes: 0 done, 1 failed, 2 wrong usage, 3 no connection to a module, 4 the module could "
    "not be read.";

/// Pictures and reports are made without a display, unless somebody wants one used.
void leaveDisplay() {
  constexpr int keep = 0;
  setenv("QT_QPA_PLATFORM", "offscreen", keep);
}

int run(int argc, char** argv) {
  CLI::App app("Shows an analog interface module on its panel, or the record of one.",
               "modulinfo-panel");
  app.set_version_flag("--version", "modulinfo-panel " TESSARA_VERSION,
                       "Print the version and exit");
  app.footer(exitCodes);
  const auto module = std::make_shared<tessara::ReadRequest>();
  tessara::PanelRequest request;
  tessara::addModuleOptions(app, module, false);
  app.add_flag("--read", request.reads, "Read the module at once");
  app.add_option("--record", request.record, "Show the record in this file instead of a module")
      ->check(CLI::ExistingFile)
      ->excludes("--port")
      ->excludes("--simulate")
      ->excludes("--read");
  app.add_option("--screenshot", request.screenshot,
                 "Read the module, draw the window into this PNG file and exit; needs no display");
  app.add_option("--report", request.report,
                 "Read the module, write its record into this PDF file and exit; needs no display");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const bool isWrong = app.exit(error) != 0;
    return static_cast<int>(isWrong ? tessara::ExitCode::WrongUsage : tessara::ExitCode::Done);
  }
  request.module = *module;
  request.namesBaudrate = app.count("--baudrate") != 0;
  if (request.isUnattended()) {
    leaveDisplay();
  }
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
