#include "serve/JsonRpc.h"

#include <utility>

namespace tessara {

namespace {

constexpr const char* rpcVersion = "2.0";

RpcEntry fault(JsonText id, RpcCode code, const std::string& message) {
  return RpcFault{std::move(id), RpcError(code, message)};
}

RpcEntry invalidRequest(const std::optional<JsonReader>& id, const std::string& message) {
  return fault(id ? id->json() : JsonText(), RpcCode::InvalidRequest, message);
}

bool canBeId(const JsonReader& value) {
  return value.isText() || value.isNumber() || value.isNull();
}

bool isText(const std::optional<JsonReader>& value, std::string_view text) {
  return value && value->isText() && value->text() == text;
}

RpcEntry decodeEntry(const JsonReader& message) {
  if (!message.isObject()) return invalidRequest({}, "a request must be an object");
  const auto id = message.find("id");
  if (id && !canBeId(*id)) return invalidRequest({}, R"("id" is not text, a number or null)");
  if (!isText(message.find("jsonrpc"), rpcVersion)) {
    return invalidRequest(id, R"("jsonrpc" is not "2.0")");
  }
  const auto method = message.find("method");
  if (!method || !method->isText()) return invalidRequest(id, R"("method" is missing or not text)");
  const auto params = message.find("params");
  return RpcRequest{id ? std::optional(id->json()) : std::nullopt, method->text(),
                    params ? params->named("params") : JsonReader::emptyObject("params")};
}

RpcLine single(RpcEntry entry) {
  RpcLine line;
  line.entries.push_back(std::move(entry));
  return line;
}

RpcLine decodeMessage(const JsonReader& message) {
  if (!message.isList()) return single(decodeEntry(message));
  const std::vector<JsonReader> requests = message.elements();
  if (requests.empty()) return single(invalidRequest({}, "a batch without a request"));
  if (requests.size() > maxBatch) {
    return single(
        invalidRequest({}, "a batch of more than " + std::to_string(maxBatch) + " requests"));
  }
  RpcLine decoded;
  decoded.isBatch = true;
  decoded.entries.reserve(requests.size());
  for (const JsonReader& request : requests) decoded.entries.push_back(decodeEntry(request));
  return decoded;
}

}  // namespace

RpcLine decodeLine(std::string_view line) {
  try {
    return decodeMessage(JsonReader::parse(line));
  } catch (const JsonSyntaxError& error) {
    return single(
        fault({}, RpcCode::InvalidJson,
              "invalid JSON at byte " + std::to_string(error.place().byte) + ": " + error.cause()));
  }
}

JsonText resultMessage(const JsonText& id, const JsonText& result) {
  return JsonText::object({{"jsonrpc", rpcVersion}, {"id", id}, {"result", result}});
}

JsonText errorMessage(const JsonText& id, const RpcError& error) {
  std::vector<JsonText::Member> members{{"code", static_cast<int>(error.code())},
                                        {"message", error.what()}};
  if (error.number()) {
    members.emplace_back(
        "data", JsonText::object({{"number", static_cast<std::int32_t>(*error.number())}}));
  }
  return JsonText::object(
      {{"jsonrpc", rpcVersion}, {"id", id}, {"error", JsonText::object(members)}});
}

JsonText notificationMessage(std::string_view method, const JsonText& params) {
  return JsonText::object({{"jsonrpc", rpcVersion}, {"method", method}, {"params", params}});
}

std::string encodeLine(const JsonText& message) {
  return message.text() + '\n';
}

}  // namespace tessara
