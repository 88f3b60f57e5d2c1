#pragma once

#include "control/MemberTable.h"
#include "serve/JsonRpc.h"

namespace tessara {

/// One member as a client is told of it: name, kind, of a property its access, and its types: that
/// of a property's value, of a method's result and of the arguments.
OrderedJson memberJson(const Member& member);

}  // namespace tessara
