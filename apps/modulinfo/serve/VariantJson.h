#pragma once

#include "base/Variant.h"
#include "json/JsonReader.h"
#include "json/JsonText.h"

namespace tessara {

/// A value of the control as JSON: text, a whole number with all its digits, a floating-point
/// number, a truth value, null for nothing.
JsonText toJson(const Variant& value);

/// The value that a client sends. Throws JsonError for a list or an object, which no member takes.
Variant toVariant(const JsonReader& json);

}  // namespace tessara
