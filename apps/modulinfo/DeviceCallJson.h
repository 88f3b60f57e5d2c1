#pragma once

#include "drivers/TracedObject.h"
#include "json/JsonText.h"

namespace tessara {

/// A call to a communication object: "object", "operation", "args", then "result" or "error", "ms".
JsonText deviceCallJson(const DeviceCall& call);

}  // namespace tessara
