#pragma once

#include <QMenu>
#include <QMenuBar>
#include <functional>

#include "host/ModulInfoPanel.h"
#include "words/HostTexts.h"

namespace tessara {

/// What the menus do beside pressing buttons of the panel.
struct HostCommands {
  std::function<void()> savePdf;
  std::function<void()> copyText;
  std::function<void()> showEvents;
  std::function<void()> quit;
};

/// Fills the menu bar: every button of the panel under its name, in the words of the host and the
/// texts of the control, and the commands of the host. An entry that presses a button can be chosen
/// as long as the button can be pressed.
void makeMenus(QMenuBar& bar, const ModulInfoPanel& host, const HostTexts& words,
               const HostCommands& commands);

}  // namespace tessara
