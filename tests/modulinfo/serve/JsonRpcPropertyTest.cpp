#include <random>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "serve/JsonRpc.h"

namespace tessara::testing {
namespace {

using Json = nlohmann::json;

constexpr int rounds = 20'000;

class Chance {
 public:
  explicit Chance(unsigned seed) : source_(seed) {}
  std::size_t below(std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(source_);
  }

 private:
  std::mt19937 source_;
};

std::string anyText(Chance& chance) {
  std::string text;
  for (auto rest = chance.below(8); rest > 0; --rest) {
    text += std::string_view("ab\"\\\n{}[]:,0\x7f")[chance.below(13)];
  }
  return text;
}

Json anyValue(Chance& chance, int depth) {
  switch (chance.below(depth > 0 ? 7 : 5)) {
    case 0:
      return nullptr;
    case 1:
      return chance.below(2) == 1;
    case 2:
      return static_cast<std::int64_t>(chance.below(1'000'000)) - 500'000;
    case 3:
      return static_cast<double>(chance.below(1000)) / 8;
    case 4:
      return anyText(chance);
    case 5:
      return Json::array({anyValue(chance, depth - 1), anyValue(chance, depth - 1)});
    default:
      return Json::object({{anyText(chance), anyValue(chance, depth - 1)}});
  }
}

Json anyId(Chance& chance) {
  Json id = anyValue(chance, 0);
  return id.is_boolean() ? Json() : id;
}

TEST(JsonRpcProperty, EveryRequestIsDecodedToWhatWasEncoded) {
  Chance chance(1);
  for (int round = 0; round < rounds; ++round) {
    const Json id = anyId(chance);
    const std::string method = anyText(chance);
    const Json params = anyValue(chance, 3);
    const Json message{{"jsonrpc", "2.0"}, {"id", id}, {"method", method}, {"params", params}};
    RpcLine line = decodeLine(message.dump());
    ASSERT_EQ(line.entries.size(), 1U);
    const RpcRequest& request = std::get<RpcRequest>(line.entries[0]);
    ASSERT_EQ(request.id, JsonText::verbatim(id.dump()));
    ASSERT_EQ(request.method, method);
    ASSERT_EQ(request.params.json().text(), params.dump());
  }
}

TEST(JsonRpcProperty, EveryAnswerIsOneLineThatReadsBack) {
  Chance chance(2);
  for (int round = 0; round < rounds; ++round) {
    const Json id = anyId(chance);
    const Json result(anyValue(chance, 3));
    const std::string line =
        encodeLine(resultMessage(JsonText::verbatim(id.dump()), JsonText::verbatim(result.dump())));
    ASSERT_EQ(line.find('\n'), line.size() - 1);
    const Json read = Json::parse(line);
    ASSERT_EQ(read.at("id"), id);
    ASSERT_EQ(read.at("result"), result);
  }
}

/// A request with bytes changed, dropped and repeated.
std::string damaged(Chance& chance) {
  std::string line =
      R"([{"jsonrpc":"2.0","id":7,"method":"set","params":{"name":"Language","value":1.5}}])";
  for (auto changes = chance.below(6); changes > 0; --changes) {
    const auto place = chance.below(line.size());
    const auto sign = static_cast<char>(chance.below(256));
    if (chance.below(2) == 0) {
      line[place] = sign;
    } else {
      line.replace(place, chance.below(4), chance.below(3), sign);
    }
    if (line.empty()) return line;
  }
  return line;
}

TEST(JsonRpcProperty, EveryLineGivesAnEntryAndNoneAnException) {
  Chance chance(3);
  for (int round = 0; round < rounds; ++round) {
    const std::string line = damaged(chance);
    RpcLine decoded;
    ASSERT_NO_THROW(decoded = decodeLine(line)) << line;
    ASSERT_FALSE(decoded.entries.empty()) << line;
    for (const RpcEntry& entry : decoded.entries) {
      if (const auto* fault = std::get_if<RpcFault>(&entry)) {
        ASSERT_NO_THROW(encodeLine(errorMessage(fault->id, fault->error))) << line;
      }
    }
  }
}

}  // namespace
}  // namespace tessara::testing
