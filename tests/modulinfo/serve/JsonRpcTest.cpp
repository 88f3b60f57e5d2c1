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

TEST(JsonRpc, ARequestHasIdMethodAndParameters) {
  const RpcRequest request =
      requestOf(R"({"jsonrpc":"2.0","id":7,"method":"get","params":{"name":"ComPort"}})");
  EXPECT_EQ(request.id, JsonText(7));
  EXPECT_EQ(request.method, "get");
  EXPECT_EQ(request.params.json().text(), R"({"name":"ComPort"})");
}

TEST(JsonRpc, ParametersMayBeLeftOut) {
  EXPECT_EQ(requestOf(R"({"jsonrpc":"2.0","id":7,"method":"show"})").params.json().text(), "{}");
}

TEST(JsonRpc, ParametersAreHandedOnAsTheyAre) {
  EXPECT_EQ(
      requestOf(R"({"jsonrpc":"2.0","id":7,"method":"show","params":[1]})").params.json().text(),
      "[1]");
}

TEST(JsonRpc, ARequestWithoutAnIdIsANotification) {
  EXPECT_FALSE(requestOf(R"({"jsonrpc":"2.0","method":"show"})").id.has_value());
}

TEST(JsonRpc, NullTextAndNumbersAreIds) {
  for (const char* id : {"null", "\"a\"", "\"\"", "0", "-5", "1.5", "18446744073709551615"}) {
    const RpcRequest request =
        requestOf(std::string(R"({"jsonrpc":"2.0","method":"show","id":)") + id + "}");
    ASSERT_TRUE(request.id.has_value()) << id;
    EXPECT_EQ(request.id->text(), id);
  }
}

TEST(JsonRpc, OtherIdsAreAnInvalidRequestWithoutAnId) {
  for (const char* id : {"true", "[]", "{}", "[1]"}) {
    const RpcFault fault =
        faultOf(std::string(R"({"jsonrpc":"2.0","method":"show","id":)") + id + "}");
    EXPECT_EQ(fault.error.code(), RpcCode::InvalidRequest);
    EXPECT_EQ(fault.id, JsonText()) << id;
    EXPECT_THAT(fault.error.what(), HasSubstr("\"id\""));
  }
}

TEST(JsonRpc, AnInvalidRequestIsAnsweredUnderItsId) {
  const RpcFault fault = faultOf(R"({"jsonrpc":"2.0","id":"x","method":5})");
  EXPECT_EQ(fault.id, JsonText("x"));
  EXPECT_EQ(fault.error.code(), RpcCode::InvalidRequest);
  EXPECT_THAT(fault.error.what(), HasSubstr("\"method\""));
}

TEST(JsonRpc, InvalidRequestsNameWhatIsWrong) {
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

TEST(JsonRpc, InvalidJsonIsReportedWithItsPlace) {
  for (const char* line : {"", " ", "{", "{]", "nul", "{\"a\":}", "{} {}", "\"\xff\"",
                           R"("\ud800")", "\"\xc3\"", "1e999", "'a'", "\x01"}) {
    const RpcFault fault = faultOf(line);
    EXPECT_EQ(fault.error.code(), RpcCode::InvalidJson) << line;
    EXPECT_EQ(fault.id, JsonText()) << line;
    EXPECT_THAT(fault.error.what(), HasSubstr("invalid JSON at byte ")) << line;
  }
  EXPECT_THAT(faultOf("{]").error.what(), HasSubstr("byte 2"));
}

TEST(JsonRpc, AnErrorOfALongLineIsShort) {
  const std::string line = "\"" + std::string(100'000, 'a');
  EXPECT_LT(std::string(faultOf(line).error.what()).size(), 200U);
}

TEST(JsonRpc, ABatchHasItsEntriesInOrderGoodAndBad) {
  RpcLine decoded = decodeLine(
      R"([{"jsonrpc":"2.0","id":1,"method":"show"},7,{"jsonrpc":"2.0","method":"members"}])");
  EXPECT_TRUE(decoded.isBatch);
  ASSERT_EQ(decoded.entries.size(), 3U);
  EXPECT_EQ(std::get<RpcRequest>(decoded.entries[0]).method, "show");
  EXPECT_EQ(std::get<RpcFault>(decoded.entries[1]).error.code(), RpcCode::InvalidRequest);
  EXPECT_EQ(std::get<RpcRequest>(decoded.entries[2]).method, "members");
}

TEST(JsonRpc, ABatchOfTooManyRequestsIsRefusedAsAWhole) {
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

TEST(JsonRpc, NestingDeeperThan64IsRefusedAtOnce) {
  constexpr std::size_t megabytes = 10'000'000;
  std::string objects;
  while (objects.size() < megabytes) objects += "{\"a\":";
  for (const std::string& line :
       {std::string(megabytes, '['), objects,
        R"({"jsonrpc":"2.0","method":"show","id":)" + std::string(megabytes, '[')}) {
    const RpcFault fault = faultOf(line);
    EXPECT_EQ(fault.error.code(), RpcCode::InvalidJson);
    EXPECT_EQ(fault.id, JsonText());
    EXPECT_THAT(fault.error.what(), HasSubstr("nested deeper than 64"));
  }
}

TEST(JsonRpc, AResultIsALineOfItsOwn) {
  EXPECT_EQ(encodeLine(resultMessage(7, JsonText::object({{"b", 1}, {"a", "x\ny"}}))),
            "{\"jsonrpc\":\"2.0\",\"id\":7,\"result\":{\"b\":1,\"a\":\"x\\ny\"}}\n");
}

TEST(JsonRpc, ARunTimeErrorCarriesItsNumber) {
  const RunTimeError overflow(ErrorNumber::Overflow, "too large");
  EXPECT_EQ(encodeLine(errorMessage("a", RpcError(overflow))),
            "{\"jsonrpc\":\"2.0\",\"id\":\"a\",\"error\":{\"code\":-32000,"
            "\"message\":\"too large\",\"data\":{\"number\":6}}}\n");
}

TEST(JsonRpc, OtherErrorsCarryNoNumber) {
  EXPECT_EQ(encodeLine(errorMessage(nullptr, RpcError(RpcCode::InvalidJson, "no"))),
            "{\"jsonrpc\":\"2.0\",\"id\":null,\"error\":{\"code\":-32700,\"message\":\"no\"}}\n");
}

TEST(JsonRpc, ANotificationHasNoId) {
  EXPECT_EQ(encodeLine(notificationMessage("event", JsonText::object({{"name", "StatusChange"}}))),
            "{\"jsonrpc\":\"2.0\",\"method\":\"event\",\"params\":{\"name\":\"StatusChange\"}}\n");
}

TEST(JsonRpc, TextBeyondAsciiIsSentAsUtf8AndOtherBytesAreReplaced) {
  EXPECT_EQ(encodeLine("Ger\xc3\xa4t \xff"), "\"Ger\xc3\xa4t \xef\xbf\xbd\"\n");
}

TEST(JsonRpc, LongNamesInMessagesAreCutOff) {
  EXPECT_EQ(inQuotes("abc"), "\"abc\"");
  EXPECT_EQ(inQuotes(std::string(80, 'a')), '"' + std::string(80, 'a') + '"');
  EXPECT_EQ(inQuotes(std::string(81, 'a')), '"' + std::string(80, 'a') + "...\"");
}

}  // namespace
}  // namespace tessara::testing
