#pragma once

#include "base/Variant.h"
#include "serve/JsonRpc.h"

namespace tessara {

/// A value of the control as JSON: text, a whole number with all its digits, a floating-point
/// number, a truth value, null for nothing.
OrderedJson toJson(const Variant& value);

/// The value that a client sends. Throws RpcError (wrong parameters) that names `what` for a list
/// or an object, which no member takes.
Variant toVariant(const Json& json, std::string_view what);

}  // namespace tessara
