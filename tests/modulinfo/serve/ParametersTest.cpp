#include <array>

#include <gmock/gmock.h>

#include "serve/Parameters.h"

namespace tessara::testing {
namespace {

using ::testing::HasSubstr;

constexpr std::array<std::string_view, 3> known{"name", "ms", "args"};

template <class Action>
std::string complaintOf(Action action) {
  try {
    action();
  } catch (const RpcError& error) {
    EXPECT_EQ(error.code(), RpcCode::WrongParameters);
    return error.what();
  }
  ADD_FAILURE() << "nothing was complained of";
  return {};
}

TEST(Parameters, values_go_by_their_names) {
  const Json json{{"name", "x"}, {"ms", -5}, {"args", {1, "a"}}};
  const Parameters parameters(json, known);
  EXPECT_EQ(parameters.text("name"), "x");
  EXPECT_EQ(parameters.number("ms"), -5);
  ASSERT_EQ(parameters.list("args").size(), 2U);
  EXPECT_EQ(parameters.list("args")[1], Json("a"));
}

TEST(Parameters, an_empty_list_stands_for_no_parameters) {
  const Json none = Json::array();
  const Parameters parameters(none, known);
  EXPECT_FALSE(parameters.has("name"));
  EXPECT_TRUE(parameters.list("args").empty());
}

TEST(Parameters, what_is_no_object_is_wrong) {
  for (const char* json : {"[1]", "\"a\"", "5", "null", "true"}) {
    const Json params = Json::parse(json);
    EXPECT_THAT(complaintOf([&] { const Parameters parameters(params, known); }),
                HasSubstr("\"params\""));
  }
}

TEST(Parameters, an_unknown_one_is_named) {
  const Json params{{"nmae", "x"}};
  EXPECT_THAT(complaintOf([&] { const Parameters parameters(params, known); }),
              HasSubstr("\"nmae\" is not known"));
}

TEST(Parameters, a_missing_one_is_named) {
  const Json params = Json::object();
  EXPECT_THAT(complaintOf([&] { (void)Parameters(params, known).text("name"); }),
              HasSubstr("\"name\" is missing"));
}

TEST(Parameters, text_is_text_and_a_list_is_a_list) {
  const Json params{{"name", 5}, {"args", "a"}};
  const Parameters parameters(params, known);
  EXPECT_THAT(complaintOf([&] { (void)parameters.text("name"); }),
              HasSubstr("\"name\" is no text"));
  EXPECT_THAT(complaintOf([&] { (void)parameters.list("args"); }),
              HasSubstr("\"args\" is no list"));
}

TEST(Parameters, numbers_are_whole_and_of_32_bits) {
  for (const char* json : {"2147483647", "-2147483648", "0"}) {
    const Json params{{"ms", Json::parse(json)}};
    EXPECT_EQ(std::to_string(Parameters(params, known).number("ms")), json);
  }
  for (const char* json :
       {"2147483648", "-2147483649", "18446744073709551615", "1.0", "\"1\"", "true", "null"}) {
    const Json params{{"ms", Json::parse(json)}};
    EXPECT_THAT(complaintOf([&] { (void)Parameters(params, known).number("ms"); }),
                HasSubstr("\"ms\" is no whole number"))
        << json;
  }
}

}  // namespace
}  // namespace tessara::testing
