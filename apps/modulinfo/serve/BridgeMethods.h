#pragma once

#include <span>
#include <string_view>

#include "json/JsonReader.h"
#include "json/JsonText.h"
#include "serve/Bridge.h"
#include "serve/JsonRpc.h"

namespace tessara {

/// One method of the bridge: the names of its parameters, and what it does.
struct BridgeMethod {
  std::string_view name;
  std::span<const std::string_view> parameters;
  /// Throws RpcError or JsonError for wrong parameters, and passes on what the control throws.
  JsonText (*run)(Bridge& bridge, const JsonReader& params);
};

std::span<const BridgeMethod> bridgeMethods();

/// Carries out one request and gives its result. Whatever fails is an RpcError.
JsonText carryOut(Bridge& bridge, const RpcRequest& request);

}  // namespace tessara
