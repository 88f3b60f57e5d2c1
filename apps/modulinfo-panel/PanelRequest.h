#pragma once

#include <string>

#include "ReadRequest.h"

namespace tessara {

/// What `modulinfo-panel` is to show.
struct PanelRequest {
  /// The module, by its port or its file. With neither the port that was used last.
  ReadRequest module;
  /// Read the module at once.
  bool reads = false;
  /// The file of the picture to draw in place of opening a window; empty for none.
  std::string screenshot;

  [[nodiscard]] bool draws() const { return !screenshot.empty(); }
  [[nodiscard]] bool namesModule() const {
    return module.comPort != 0 || !module.moduleFile.empty();
  }
};

}  // namespace tessara
