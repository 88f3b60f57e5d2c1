#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "serve/JsonRpc.h"
#include "serve/LineSplitter.h"
#include "serve/Parameters.h"
#include "serve/VariantJson.h"

namespace {

using namespace tessara;

constexpr std::array<std::string_view, 4> known{"name", "value", "ms", "args"};

/// Takes a request apart as the methods do.
void useParameters(const Json& params) {
  const Parameters parameters(params, known);
  if (parameters.has("name")) (void)parameters.text("name");
  if (parameters.has("value")) (void)toJson(toVariant(parameters.value("value"), "value"));
  if (parameters.has("ms")) (void)parameters.number("ms");
  for (const Json& argument : parameters.list("args")) (void)toVariant(argument, "args");
}

OrderedJson answerOf(const RpcEntry& entry) {
  if (const auto* fault = std::get_if<RpcFault>(&entry)) {
    return errorMessage(fault->id, fault->error);
  }
  const auto& request = std::get<RpcRequest>(entry);
  const Json id = request.id.value_or(Json());
  try {
    useParameters(request.params);
    return resultMessage(id, inQuotes(request.method));
  } catch (const RpcError& error) {
    return errorMessage(id, error);
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
