#pragma once

#include <string>

#include "localisation/TextTables.h"

namespace tessara {

/// The texts in force and where they come from; one set for each user-interface thread.
struct LanguageState : TextTables {
  /// The last load failed.
  bool LanguageFileError = false;
  /// File name of the help in the current language; empty until the first load.
  std::u16string HelpFileName;
  /// The last three characters of the language file's name, "dlg" for German.
  std::u16string LanguageFileExtension;
};

}  // namespace tessara
