#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "serve/JsonRpc.h"
#include "serve/LineSplitter.h"
#include "serve/VariantJson.h"

namespace {

using namespace tessara;

/// Takes a request apart as the methods do.
void useParameters(const JsonReader& params) {
  params.allowOnly({"name", "value", "ms", "args"});
  if (params.has("name")) (void)params["name"].text();
  if (params.has("value")) (void)toJson(toVariant(params["value"]));
  if (params.has("ms")) (void)params["ms"].signedNumber(0, 1000);
  if (!params.has("args")) return;
  for (const JsonReader& argument : params["args"].elements()) (void)toVariant(argument);
}

JsonText answerOf(const RpcEntry& entry) {
  if (const auto* fault = std::get_if<RpcFault>(&entry)) {
    return errorMessage(fault->id, fault->error);
  }
  const auto& request = std::get<RpcRequest>(entry);
  const JsonText id = request.id.value_or(JsonText());
  try {
    useParameters(request.params);
    return resultMessage(id, inQuotes(request.method));
  } catch (const JsonError& error) {
    return errorMessage(id, wrongParameters(error.what()));
  }
}

}  // namespace

/// Whatever a client sends, each line of it gives entries, and each entry an answer of one line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  LineSplitter splitter(1000);
  auto lines = splitter.add({reinterpret_cast<const char*>(data), size});
  for (auto& last : splitter.finish()) lines.push_back(last);
  for (const auto& line : lines) {
    if (!line) continue;
    const RpcLine decoded = decodeLine(*line);
    if (decoded.entries.empty()) std::abort();
    for (const RpcEntry& entry : decoded.entries) {
      const std::string answer = encodeLine(answerOf(entry));
      if (answer.find('\n') != answer.size() - 1) std::abort();
    }
  }
  return 0;
}
