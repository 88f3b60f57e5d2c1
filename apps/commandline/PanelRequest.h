#pragma once

#include <string>

#include "common/ModuleRequest.h"

namespace tessara {

/// What the command line of `modulinfo-panel` asks for.
struct PanelRequest {
  /// The module, by its port or its file. With neither the port that was used last.
  ModuleRequest module;
  /// Read the module at once.
  bool reads = false;
  /// The file of a record to show in place of a module; empty for none.
  std::string record;
  /// The file of the picture to draw in place of opening a window; empty for none.
  std::string screenshot;
  /// The file of the report to write in place of opening a window; empty for none.
  std::string report;

  /// The program ends when its picture and its report are written, and needs no display.
  [[nodiscard]] bool isUnattended() const { return !screenshot.empty() || !report.empty(); }
  [[nodiscard]] bool namesModule() const {
    return module.comPort != 0 || !module.moduleFile.empty();
  }
};

}  // namespace tessara
