#include <limits>

#include <gtest/gtest.h>

#include "json/JsonText.h"

namespace tessara::testing {
namespace {

TEST(JsonText, WritesEachKindOfValue) {
  EXPECT_EQ(JsonText().text(), "null");
  EXPECT_EQ(JsonText(nullptr).text(), "null");
  EXPECT_EQ(JsonText(true).text(), "true");
  EXPECT_EQ(JsonText(false).text(), "false");
  EXPECT_EQ(JsonText(-32768).text(), "-32768");
  EXPECT_EQ(JsonText(std::uint8_t{200}).text(), "200");
  EXPECT_EQ(JsonText(std::numeric_limits<std::uint64_t>::max()).text(), "18446744073709551615");
  EXPECT_EQ(JsonText(1.5).text(), "1.5");
  EXPECT_EQ(JsonText(5.0).text(), "5.0");
  EXPECT_EQ(JsonText("a").text(), "\"a\"");
  EXPECT_EQ(JsonText(std::string("a")).text(), "\"a\"");
}

TEST(JsonText, EscapesWhatWouldEndALineOrAText) {
  EXPECT_EQ(JsonText(std::string_view("a\"b\\\n\0", 6)).text(), R"("a\"b\\\n\u0000")");
}

TEST(JsonText, KeepsUtf8AndReplacesOtherBytes) {
  EXPECT_EQ(JsonText("Ger\xc3\xa4t \xff").text(), "\"Ger\xc3\xa4t \xef\xbf\xbd\"");
}

TEST(JsonText, KeepsMembersAndElementsInTheirOrder) {
  EXPECT_EQ(JsonText::object({{"b", 1}, {"a", JsonText::list({true, "x", nullptr})}}).text(),
            R"({"b":1,"a":[true,"x",null]})");
  EXPECT_EQ(JsonText::object({}).text(), "{}");
  EXPECT_EQ(JsonText::list({}).text(), "[]");
  EXPECT_EQ(JsonText::object({{"a", "b"}, {"c", "d"}}).text(), R"({"a":"b","c":"d"})");
}

TEST(JsonText, IsIndentedByTwoBlanks) {
  EXPECT_EQ(JsonText::object({{"b", 18446744073709551615U}, {"a", JsonText::list({1})}}).indented(),
            "{\n  \"b\": 18446744073709551615,\n  \"a\": [\n    1\n  ]\n}");
}

}  // namespace
}  // namespace tessara::testing
