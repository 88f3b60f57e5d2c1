#pragma once

#include <cstdint>

#include "platform/Locale.h"

namespace tessara {

/// The tag under which the catalogue keeps the data sheet for a user of language number `language`:
/// German, French and Italian ones have their own, all others read English. 0 follows the country
/// of the system, which is asked for only then.
const char* datasheetTag(std::int16_t language, const Locale& locale);

}  // namespace tessara
