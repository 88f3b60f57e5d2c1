#pragma once

#include <string>
#include <string_view>

#include "control/ModulInfoFLII.h"

namespace tessara {

/// A module's text as people want to see it: without the zero characters and blanks that modules
/// fill their registers up with, in UTF-8.
std::string withoutPadding(std::u16string_view text);

/// The panel as lines of "caption  value", the values below each other, in UTF-8. Rows that the
/// panel hides, links that the catalogue does not give and an empty status line are left out.
std::string panelText(const ModulInfoFLII& control);

}  // namespace tessara
