#pragma once

#include "localisation/TextTables.h"

namespace tessara::testing {

/// The built-in texts of the control.
struct GermanTexts {
  GermanTexts() { LoadDefaultTexts(tables); }
  TextTables tables;
};

}  // namespace tessara::testing
