#pragma once

#include "localisation/LanguageState.h"

namespace tessara {

/// Lets Qt's own dialogs speak the language of the texts that the control shows, as far as Qt's
/// translations are installed, and all windows write it in a font of its own.
void speakLanguageOf(const LanguageState& state);

}  // namespace tessara
