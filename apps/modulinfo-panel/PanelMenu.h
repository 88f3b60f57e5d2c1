#pragma once

#include <QMenu>
#include <QMenuBar>
#include <functional>

#include "host/ModulInfoPanel.h"

namespace tessara {

/// What the menus do besides pressing buttons of the panel.
struct HostCommands {
  std::function<void()> savePdf;
  std::function<void()> copyText;
  std::function<void()> showEvents;
  std::function<void()> quit;
};

/// Fills the menu bar in the language installed: an entry for each button of the panel, some of
/// them under the control's own texts, and the commands of the host. An entry that presses a button
/// is enabled whenever the button is.
void makeMenus(QMenuBar& bar, const ModulInfoPanel& host, const HostCommands& commands);

}  // namespace tessara
