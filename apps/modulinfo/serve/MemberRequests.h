#pragma once

#include "serve/Bridge.h"
#include "serve/Parameters.h"

namespace tessara {

// The requests that go to the members of the control. A name that no member has, or a property that
// cannot be read or written, is an RpcError (wrong parameters).

OrderedJson getMember(Bridge& bridge, const Parameters& parameters);
OrderedJson setMember(Bridge& bridge, const Parameters& parameters);
OrderedJson callMember(Bridge& bridge, const Parameters& parameters);
OrderedJson tellMembers(Bridge& bridge, const Parameters& parameters);

}  // namespace tessara
