#pragma once

#include <cstdint>

#include "platform/Locale.h"

namespace tessara {

/// The tag of the data sheet in the catalogue for language number `language`: German, French and
/// Italian have their own, all others use English. 0 follows the country of the system, which is
/// read only then.
const char* datasheetTag(std::int16_t language, const Locale& locale);

}  // namespace tessara
