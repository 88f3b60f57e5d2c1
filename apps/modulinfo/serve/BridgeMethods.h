#pragma once

#include <span>
#include <string_view>

#include "serve/Bridge.h"
#include "serve/Parameters.h"

namespace tessara {

/// One method of the bridge: the names of its parameters, and what it does.
struct BridgeMethod {
  std::string_view name;
  std::span<const std::string_view> parameters;
  /// Throws RpcError for parameters that make no sense, and passes on what the control throws.
  OrderedJson (*run)(Bridge& bridge, const Parameters& parameters);
};

std::span<const BridgeMethod> bridgeMethods();

/// Carries out one request and gives its result. Everything that can go wrong comes as RpcError.
OrderedJson carryOut(Bridge& bridge, const RpcRequest& request);

}  // namespace tessara
