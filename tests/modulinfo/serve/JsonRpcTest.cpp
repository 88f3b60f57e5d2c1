#include <gmock/gmock.h>

#include "serve/JsonRpc.h"

namespace tessara::testing {
namespace {

using ::testing::HasSubstr;

RpcRequest requestOf(std::string_view line) {
  RpcLine decoded = decodeLine(line);
  EXPECT_FALSE(decoded.isBatch);
  EXPECT_EQ(decoded.entries.size(), 1U);
  return std::get<RpcRequest>(decoded.entries.at(0));
}

RpcFault faultOf(std::string_view line) {
  RpcLine decoded = decodeLine(line);
  EXPECT_FALSE(decoded.isBatch);
  EXPECT_EQ(decoded.entries.size(), 1U);
  return std::get<RpcFault>(decoded.entries.at(0));
}

TEST(JsonRpc, a_request_has_id_method_and_parameters) {
  const RpcRequest request =
      requestOf(R"({"jsonrpc":"2.0","id":7,"method":"get","params":{"name":"ComPort"}})");
  EXPECT_EQ(request.id, Json(7));
  EXPECT_EQ(request.method, "get");
  EXPECT_EQ(request.params, Json({{"name", "ComPort"}}));
}

TEST(JsonRpc, parameters_may_be_left_out) {
  EXPECT_EQ(requestOf(R"({"jsonrpc":"2.0","id":7,"method":"show"})").params, Json::object());
}

TEST(JsonRpc, parameters_are_handed_on_as_they_are) {
  EXPECT_EQ(requestOf(R"({"jsonrpc":"2.0","id":7,"method":"show","params":[1]})").params,
            Json::array({1}));
}

TEST(JsonRpc, a_request_without_an_id_is_a_notification) {
  EXPECT_FALSE(requestOf(R"({"jsonrpc":"2.0","method":"show"})").id.has_value());
}

TEST(JsonRpc, null_text_and_numbers_are_ids) {
  for (const char* id : {"null", "\"a\"", "\"\"", "0", "-5", "1.5", "18446744073709551615"}) {
    const RpcRequest request =
        requestOf(std::string(R"({"jsonrpc":"2.0","method":"show","id":)") + id + "}");
    ASSERT_TRUE(request.id.has_value()) << id;
    EXPECT_EQ(request.id->dump(), id);
  }
}

TEST(JsonRpc, other_ids_are_an_invalid_request_without_an_id) {
  for (const char* id : {"true", "[]", "{}", "[1]"}) {
    const RpcFault fault =
        faultOf(std::string(R"({"jsonrpc":"2.0","method":"show","id":)") + id + "}");
    EXPECT_EQ(fault.error.code(), RpcCode::InvalidRequest);
    EXPECT_EQ(fault.id, Json()) << id;
    EXPECT_THAT(fault.error.what(), HasSubstr("\"id\""));
  }
}

TEST(JsonRpc, an_invalid_request_is_answered_under_its_id) {
  const RpcFault fault = faultOf(R"({"jsonrpc":"2.0","id":"x","method":5})");
  EXPECT_EQ(fault.id, Json("x"));
  EXPECT_EQ(fault.error.code(), RpcCode::InvalidRequest);
  EXPECT_THAT(fault.error.what(), HasSubstr("\"method\""));
}

TEST(JsonRpc, invalid_requests_name_what_is_wrong) {
  const std::pair<const char*, const char*> rows[] = {
      {R"({"id":1,"method":"show"})", "\"jsonrpc\""},
      {R"({"jsonrpc":2.0,"id":1,"method":"show"})", "\"jsonrpc\""},
      {R"({"jsonrpc":"1.0","id":1,"method":"show"})", "\"jsonrpc\""},
      {R"({"jsonrpc":"2.0","id":1})", "\"method\""},
      {R"({"jsonrpc":"2.0","id":1,"result":null})", "\"method\""},
      {"5", "object"},
      {"null", "object"},
      {"\"show\"", "object"},
      {"[]", "batch"},
  };
  for (const auto& [line, named] : rows) {
    const RpcFault fault = faultOf(line);
    EXPECT_EQ(fault.error.code(), RpcCode::InvalidRequest) << line;
    EXPECT_THAT(fault.error.what(), HasSubstr(named)) << line;
  }
}

TEST(JsonRpc, what_is_no_json_is_told_with_its_place) {
  for (const char* line : {"", " ", "{", "{]", "nul", "{\"a\":}", "{} {}", "\"\xff\"",
                           R"("\ud800")", "\"\xc3\"", "1e999", "'a'", "\x01"}) {
    const RpcFault fault = faultOf(line);
    EXPECT_EQ(fault.error.code(), RpcCode::NoJson) << line;
    EXPECT_EQ(fault.id, Json()) << line;
    EXPECT_THAT(fault.error.what(), HasSubstr("the line is no JSON")) << line;
  }
  EXPECT_THAT(faultOf("{]").error.what(), HasSubstr("byte 2"));
}

TEST(JsonRpc, an_error_of_a_long_line_is_short) {
  const std::string line = "\"" + std::string(100'000, 'a');
  EXPECT_LT(std::string(faultOf(line).error.what()).size(), 200U);
}

TEST(JsonRpc, a_batch_has_its_entries_in_order_good_and_bad) {
  RpcLine decoded = decodeLine(
      R"([{"jsonrpc":"2.0","id":1,"method":"show"},7,{"jsonrpc":"2.0","method":"members"}])");
  EXPECT_TRUE(decoded.isBatch);
  ASSERT_EQ(decoded.entries.size(), 3U);
  EXPECT_EQ(std::get<RpcRequest>(decoded.entries[0]).method, "show");
  EXPECT_EQ(std::get<RpcFault>(decoded.entries[1]).error.code(), RpcCode::InvalidRequest);
  EXPECT_EQ(std::get<RpcRequest>(decoded.entries[2]).method, "members");
}

TEST(JsonRpc, a_batch_beyond_all_measure_is_refused_as_a_whole) {
  const auto batchOf = [](std::size_t entries) {
    std::string line = "[0";
    for (std::size_t i = 1; i < entries; ++i) line += ",0";
    return decodeLine(line + "]");
  };
  EXPECT_EQ(batchOf(10'000).entries.size(), 10'000U);
  const RpcLine refused = batchOf(10'001);
  EXPECT_FALSE(refused.isBatch);
  ASSERT_EQ(refused.entries.size(), 1U);
  const auto& fault = std::get<RpcFault>(refused.entries[0]);
  EXPECT_EQ(fault.error.code(), RpcCode::InvalidRequest);
  EXPECT_STREQ(fault.error.what(), "a batch of more than 10000 requests");
}

TEST(JsonRpc, nesting_without_bottom_is_survived) {
  constexpr std::size_t deep = 200'000;
  EXPECT_EQ(faultOf(std::string(deep, '[')).error.code(), RpcCode::NoJson);
  const RpcLine batch = decodeLine(std::string(deep, '[') + std::string(deep, ']'));
  EXPECT_EQ(std::get<RpcFault>(batch.entries.at(0)).error.code(), RpcCode::InvalidRequest);
  EXPECT_EQ(faultOf(R"({"jsonrpc":"2.0","method":"show","id":)" + std::string(deep, '[') +
                    std::string(deep, ']') + "}")
                .error.code(),
            RpcCode::InvalidRequest);
}

TEST(JsonRpc, a_result_is_a_line_of_its_own) {
  EXPECT_EQ(encodeLine(resultMessage(Json(7), {{"b", 1}, {"a", "x\ny"}})),
            "{\"jsonrpc\":\"2.0\",\"id\":7,\"result\":{\"b\":1,\"a\":\"x\\ny\"}}\n");
}

TEST(JsonRpc, a_run_time_error_carries_its_number) {
  const RunTimeError overflow(ErrorNumber::Overflow, "too large");
  EXPECT_EQ(encodeLine(errorMessage(Json("a"), RpcError(overflow))),
            "{\"jsonrpc\":\"2.0\",\"id\":\"a\",\"error\":{\"code\":-32000,"
            "\"message\":\"too large\",\"data\":{\"number\":6}}}\n");
}

TEST(JsonRpc, other_errors_carry_no_number) {
  EXPECT_EQ(encodeLine(errorMessage({}, RpcError(RpcCode::NoJson, "no"))),
            "{\"jsonrpc\":\"2.0\",\"id\":null,\"error\":{\"code\":-32700,\"message\":\"no\"}}\n");
}

TEST(JsonRpc, a_notification_has_no_id) {
  EXPECT_EQ(encodeLine(notificationMessage("event", {{"name", "StatusChange"}})),
            "{\"jsonrpc\":\"2.0\",\"method\":\"event\",\"params\":{\"name\":\"StatusChange\"}}\n");
}

TEST(JsonRpc, text_beyond_ascii_goes_out_as_utf8_and_broken_text_is_mended) {
  EXPECT_EQ(encodeLine("Ger\xc3\xa4t \xff"), "\"Ger\xc3\xa4t \xef\xbf\xbd\"\n");
}

TEST(JsonRpc, names_in_messages_are_cut_where_they_are_long) {
  EXPECT_EQ(inQuotes("abc"), "\"abc\"");
  EXPECT_EQ(inQuotes(std::string(80, 'a')), '"' + std::string(80, 'a') + '"');
  EXPECT_EQ(inQuotes(std::string(81, 'a')), '"' + std::string(80, 'a') + "...\"");
}

}  // namespace
}  // namespace tessara::testing
