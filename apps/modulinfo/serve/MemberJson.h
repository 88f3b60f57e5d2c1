#pragma once

#include "control/MemberTable.h"
#include "json/JsonText.h"

namespace tessara {

/// The description of one member for a client: name, kind, access of a property, and the types of a
/// property's value, a method's result and the arguments.
JsonText memberJson(const Member& member);

}  // namespace tessara
