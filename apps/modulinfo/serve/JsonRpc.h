#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <nlohmann/json.hpp>

#include "serve/RpcError.h"

namespace tessara {

/// What arrives; finds the members of large objects quickly.
using Json = nlohmann::json;
/// What is sent; keeps the order in which members were put in.
using OrderedJson = nlohmann::ordered_json;

/// A request, or a notification of the client if it has no id: that is carried out and not
/// answered.
struct RpcRequest {
  /// Text, a number or null.
  std::optional<Json> id;
  std::string method;
  /// As they came; an empty object if the request has none.
  Json params;
};

/// A message that is no request. It is answered under its id, or under null if it has none that can
/// be used.
struct RpcFault {
  Json id;
  RpcError error;
};

using RpcEntry = std::variant<RpcRequest, RpcFault>;

/// What one line holds: one entry, or those of a batch in their order.
struct RpcLine {
  bool isBatch = false;
  std::vector<RpcEntry> entries;
};

/// The most requests that a batch may hold: each takes several hundred times the room of the two
/// bytes that it takes at the least in its line.
inline constexpr std::size_t mostInBatch = 10'000;

/// Reads one line (UTF-8, without its end). Whatever stands in it gives at least one entry and
/// never an exception.
RpcLine decodeLine(std::string_view line);

OrderedJson resultMessage(const Json& id, OrderedJson result);
OrderedJson errorMessage(const Json& id, const RpcError& error);
OrderedJson notificationMessage(std::string_view method, OrderedJson params);

/// One message, or a batch of answers, as a line with its end. Bytes that are no UTF-8 give U+FFFD.
std::string encodeLine(const OrderedJson& message);

}  // namespace tessara
