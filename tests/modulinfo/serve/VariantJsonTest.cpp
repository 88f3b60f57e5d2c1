#include <limits>

#include <gtest/gtest.h>

#include "serve/VariantJson.h"

namespace tessara::testing {
namespace {

TEST(VariantJson, EveryValueIsSentAsItsOwnKind) {
  EXPECT_EQ(toJson({}).text(), "null");
  EXPECT_EQ(toJson(u"Ger\u00e4t").text(), "\"Ger\u00e4t\"");
  EXPECT_EQ(toJson(std::int64_t{-32768}).text(), "-32768");
  EXPECT_EQ(toJson(1.5).text(), "1.5");
  EXPECT_EQ(toJson(true).text(), "true");
  EXPECT_EQ(toJson(false).text(), "false");
}

TEST(VariantJson, ADecimalKeepsAllItsDigits) {
  EXPECT_EQ(toJson(std::numeric_limits<std::uint64_t>::max()).text(), "18446744073709551615");
  EXPECT_EQ(toJson(std::uint64_t{9007199254740993}).text(), "9007199254740993");
}

TEST(VariantJson, EveryValueIsReceivedAsItsOwnKind) {
  EXPECT_EQ(toVariant(JsonReader::parse("null")), Variant());
  EXPECT_EQ(toVariant(JsonReader::parse("\"a\"")), Variant(u"a"));
  EXPECT_EQ(toVariant(JsonReader::parse("-5")), Variant(std::int64_t{-5}));
  EXPECT_EQ(toVariant(JsonReader::parse("5")), Variant(std::int64_t{5}));
  EXPECT_EQ(toVariant(JsonReader::parse("9223372036854775807")),
            Variant(std::numeric_limits<std::int64_t>::max()));
  EXPECT_EQ(toVariant(JsonReader::parse("9223372036854775808")),
            Variant(std::uint64_t{9223372036854775808U}));
  EXPECT_EQ(toVariant(JsonReader::parse("5.0")), Variant(5.0));
  EXPECT_EQ(toVariant(JsonReader::parse("true")), Variant(true));
}

TEST(VariantJson, ListsAndObjectsAreRefused) {
  for (const char* json : {"[]", "{}", "[1]"}) {
    try {
      toVariant(JsonReader::parse(json, "Language"));
      FAIL() << json;
    } catch (const JsonError& error) {
      EXPECT_EQ(std::string(error.what()),
                std::string("Language: ") + json + " is not text, a number, true, false or null");
    }
  }
}

}  // namespace
}  // namespace tessara::testing
