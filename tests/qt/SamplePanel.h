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

/// Sets texts, ports and pictures of the panel as before a read. The fields for rate and address
/// are hidden, as by default.
void bringUp(Panel& panel, const PanelTexts& texts);

/// Shows the fields for rate and address.
void showInputs(Panel& panel);

/// Fills in a module without faults.
void fillHealthy(Panel& panel);

/// Fills in the longest values that a module can have, with several faults.
void fillLongest(Panel& panel);

/// Disables the buttons that can be disabled.
void disableButtons(Panel& panel);

/// The palette of a dark theme.
QPalette darkPalette();

}  // namespace tessara::testing
