#pragma once

#include "json/JsonReader.h"
#include "json/JsonText.h"
#include "serve/Bridge.h"

namespace tessara {

// The requests that go to the members of the control. A name that no member has, or a property that
// cannot be read or written, is an RpcError (wrong parameters).

JsonText getMember(Bridge& bridge, const JsonReader& params);
JsonText setMember(Bridge& bridge, const JsonReader& params);
JsonText callMember(Bridge& bridge, const JsonReader& params);
JsonText members(Bridge& bridge, const JsonReader& params);

}  // namespace tessara
