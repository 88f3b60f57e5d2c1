#pragma once

#include "localisation/LanguageState.h"

namespace tessara {

/// Installs the translation of the program and, where Qt's translations are installed, that of Qt's
/// own dialogs, for the language of the texts that the control shows. Sets the default locale and,
/// for languages that need it, a font of their own. Replaces what an earlier call has installed.
void installTranslator(const LanguageState& state);

}  // namespace tessara
