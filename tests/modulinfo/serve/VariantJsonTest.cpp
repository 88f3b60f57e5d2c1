#include <limits>

#include <gtest/gtest.h>

#include "serve/VariantJson.h"

namespace tessara::testing {
namespace {

TEST(VariantJson, every_value_goes_out_as_its_own_kind) {
  EXPECT_EQ(toJson({}).dump(), "null");
  EXPECT_EQ(toJson(u"Ger\u00e4t").dump(), "\"Ger\u00e4t\"");
  EXPECT_EQ(toJson(std::int64_t{-32768}).dump(), "-32768");
  EXPECT_EQ(toJson(1.5).dump(), "1.5");
  EXPECT_EQ(toJson(true).dump(), "true");
  EXPECT_EQ(toJson(false).dump(), "false");
}

TEST(VariantJson, a_decimal_keeps_all_its_digits) {
  EXPECT_EQ(toJson(std::numeric_limits<std::uint64_t>::max()).dump(), "18446744073709551615");
  EXPECT_EQ(toJson(std::uint64_t{9007199254740993}).dump(), "9007199254740993");
}

TEST(VariantJson, every_value_comes_in_as_its_own_kind) {
  EXPECT_EQ(toVariant(Json::parse("null"), "x"), Variant());
  EXPECT_EQ(toVariant(Json::parse("\"a\""), "x"), Variant(u"a"));
  EXPECT_EQ(toVariant(Json::parse("-5"), "x"), Variant(std::int64_t{-5}));
  EXPECT_EQ(toVariant(Json::parse("5"), "x"), Variant(std::int64_t{5}));
  EXPECT_EQ(toVariant(Json::parse("9223372036854775807"), "x"),
            Variant(std::numeric_limits<std::int64_t>::max()));
  EXPECT_EQ(toVariant(Json::parse("9223372036854775808"), "x"),
            Variant(std::uint64_t{9223372036854775808U}));
  EXPECT_EQ(toVariant(Json::parse("5.0"), "x"), Variant(5.0));
  EXPECT_EQ(toVariant(Json::parse("true"), "x"), Variant(true));
}

TEST(VariantJson, lists_and_objects_are_no_values) {
  for (const char* json : {"[]", "{}", "[1]"}) {
    try {
      toVariant(Json::parse(json), "Language");
      FAIL() << json;
    } catch (const RpcError& error) {
      EXPECT_EQ(error.code(), RpcCode::WrongParameters);
      EXPECT_NE(std::string(error.what()).find("Language"), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace tessara::testing
