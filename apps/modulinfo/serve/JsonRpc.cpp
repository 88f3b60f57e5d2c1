#include "serve/JsonRpc.h"

#include <utility>

namespace tessara {

namespace {

constexpr const char* version = "2.0";

RpcEntry fault(Json id, RpcCode code, const std::string& message) {
  return RpcFault{std::move(id), RpcError(code, message)};
}

bool canBeId(const Json& value) {
  return value.is_string() || value.is_number() || value.is_null();
}

/// Takes the member out of the object; nothing if it has none of that name.
std::optional<Json> taken(Json& object, const char* name) {
  const auto member = object.find(name);
  if (member == object.end()) return std::nullopt;
  return std::move(*member);
}

RpcEntry decodeEntry(Json& message) {
  if (!message.is_object()) {
    return fault({}, RpcCode::InvalidRequest, "a request is an object");
  }
  std::optional<Json> id = taken(message, "id");
  if (id && !canBeId(*id)) {
    return fault({}, RpcCode::InvalidRequest, R"("id" is neither text nor a number nor null)");
  }
  if (const auto given = message.find("jsonrpc"); given == message.end() || *given != version) {
    return fault(id.value_or(Json()), RpcCode::InvalidRequest, R"("jsonrpc" is not "2.0")");
  }
  const auto method = message.find("method");
  if (method == message.end() || !method->is_string()) {
    return fault(id.value_or(Json()), RpcCode::InvalidRequest,
                 "\"method\" is missing or is no text");
  }
  return RpcRequest{std::move(id), method->get<std::string>(),
                    taken(message, "params").value_or(Json::object())};
}

RpcLine decodeMessage(Json message) {
  RpcLine decoded;
  if (!message.is_array()) {
    decoded.entries.push_back(decodeEntry(message));
    return decoded;
  }
  if (message.empty()) {
    decoded.entries.push_back(fault({}, RpcCode::InvalidRequest, "a batch without a request"));
    return decoded;
  }
  if (message.size() > mostInBatch) {
    decoded.entries.push_back(
        fault({}, RpcCode::InvalidRequest,
              "a batch of more than " + std::to_string(mostInBatch) + " requests"));
    return decoded;
  }
  decoded.isBatch = true;
  decoded.entries.reserve(message.size());
  for (Json& entry : message) decoded.entries.push_back(decodeEntry(entry));
  return decoded;
}

RpcLine noJson(const std::string& cause) {
  RpcLine decoded;
  decoded.entries.push_back(fault({}, RpcCode::NoJson, "the line is no JSON: " + cause));
  return decoded;
}

OrderedJson message() {
  return {{"jsonrpc", version}};
}

}  // namespace

RpcLine decodeLine(std::string_view line) {
  try {
    return decodeMessage(Json::parse(line));
  } catch (const Json::parse_error& error) {
    return noJson("it makes no sense at byte " + std::to_string(error.byte));
  } catch (const Json::exception&) {
    return noJson("a number in it is too large");
  }
}

OrderedJson resultMessage(const Json& id, OrderedJson result) {
  OrderedJson answer = message();
  answer["id"] = id;
  answer["result"] = std::move(result);
  return answer;
}

OrderedJson errorMessage(const Json& id, const RpcError& error) {
  OrderedJson told{{"code", static_cast<int>(error.code())}, {"message", error.what()}};
  if (error.number()) told["data"] = {{"number", static_cast<std::int32_t>(*error.number())}};
  OrderedJson answer = message();
  answer["id"] = id;
  answer["error"] = std::move(told);
  return answer;
}

OrderedJson notificationMessage(std::string_view method, OrderedJson params) {
  OrderedJson told = message();
  told["method"] = method;
  told["params"] = std::move(params);
  return told;
}

std::string encodeLine(const OrderedJson& message) {
  return message.dump(-1, ' ', false, OrderedJson::error_handler_t::replace) + '\n';
}

}  // namespace tessara
