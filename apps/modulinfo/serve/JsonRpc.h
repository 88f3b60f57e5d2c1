#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "json/JsonReader.h"
#include "json/JsonText.h"
#include "serve/RpcError.h"

namespace tessara {

/// A request, or a notification of the client if it has no id: that is carried out and not
/// answered.
struct RpcRequest {
  /// Text, a number or null.
  std::optional<JsonText> id;
  std::string method;
  /// As they came, called "params"; an empty object if the request has none.
  JsonReader params;
};

/// A message that is not a request. It is answered under its id, or under null if it has none that
/// can be used.
struct RpcFault {
  JsonText id;
  RpcError error;
};

using RpcEntry = std::variant<RpcRequest, RpcFault>;

/// What one line holds: one entry, or those of a batch in their order.
struct RpcLine {
  bool isBatch = false;
  std::vector<RpcEntry> entries;
};

/// The maximum number of requests in a batch: each takes several hundred times the room of the two
/// bytes that it takes at the least in its line.
inline constexpr std::size_t maxBatch = 10'000;

/// Reads one line (UTF-8, without its end). Whatever it holds gives at least one entry and never an
/// exception.
RpcLine decodeLine(std::string_view line);

JsonText resultMessage(const JsonText& id, const JsonText& result);
JsonText errorMessage(const JsonText& id, const RpcError& error);
JsonText notificationMessage(std::string_view method, const JsonText& params);

/// One message, or a batch of answers, as a line with its end.
std::string encodeLine(const JsonText& message);

}  // namespace tessara
