#pragma once

#include <nlohmann/json.hpp>

#include "drivers/TracedObject.h"

namespace tessara {

/// A call to a communication object: "object", "operation", "args", then "result" or "error", "ms".
nlohmann::ordered_json deviceCallJson(const DeviceCall& call);

}  // namespace tessara
