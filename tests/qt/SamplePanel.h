#pragma once

#include <QPalette>

#include "control/Panel.h"

namespace tessara::testing {

/// The captions and tool tips of one language, as the control puts them on the panel.
struct PanelTexts {
  std::array<std::u16string, 9> fields;
  /// In the order of the buttons from left to right.
  std::array<std::u16string, 9> buttons;
};
extern const PanelTexts german;
extern const PanelTexts russian;
extern const PanelTexts chinese;

/// Puts texts, ports and pictures on the panel, as it stands before a module is read. The fields of
/// rate and address are hidden, as they are on most machines.
void bringUp(Panel& panel, const PanelTexts& texts);

/// Shows the fields of rate and address.
void showInputs(Panel& panel);

/// Fills in a module without fault.
void fillHealthy(Panel& panel);

/// Fills in the longest values that a module can have, with several faults.
void fillLongest(Panel& panel);

/// Disables the buttons that can be disabled.
void disableButtons(Panel& panel);

/// A palette as desktops have them at night.
QPalette darkPalette();

}  // namespace tessara::testing
