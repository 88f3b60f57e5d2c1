#pragma once

#include <cstdint>

#include "platform/Locale.h"

namespace tessara {

/// The telephone country code of the system: 49 for Germany, 1 for the United States; 0 when there
/// is none to be had. A code that holds no number is a type mismatch (error 13).
std::int32_t GetSystemCountryCode(const Locale& locale);

}  // namespace tessara
