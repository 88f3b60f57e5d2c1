#pragma once

#include "localisation/TextTables.h"

namespace tessara::testing {

/// The control's own wording.
struct GermanTexts {
  GermanTexts() { LoadDefaultTexts(tables); }
  TextTables tables;
};

}  // namespace tessara::testing
