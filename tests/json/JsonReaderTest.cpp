#include <array>
#include <limits>

#include <gmock/gmock.h>

#include "json/JsonReader.h"

namespace tessara::testing {
namespace {

using ::testing::HasSubstr;

JsonReader reading(std::string_view text) {
  return JsonReader::parse(text);
}

/// The message of the JsonError that the action ends in.
template <class Action>
std::string problemOf(Action action) {
  try {
    (void)action();
  } catch (const JsonError& error) {
    return error.what();
  }
  return "no problem";
}

/// The message of the JsonSyntaxError that the text gives.
std::string syntaxProblemOf(std::string_view text) {
  try {
    (void)JsonReader::parse(text);
  } catch (const JsonSyntaxError& error) {
    return error.what();
  }
  return "no problem";
}

TEST(JsonReader, ReadsValuesOfEveryKind) {
  const JsonReader root = reading(
      R"({"text": "a", "number": 5, "negative": -5, "real": 1.5, "truth": true, "nothing": null})");
  EXPECT_EQ(root["text"].text(), "a");
  EXPECT_EQ(root["number"].number(0, 10), 5U);
  EXPECT_EQ(root["negative"].signedNumber(-10, 10), -5);
  EXPECT_EQ(root["real"].real(), 1.5);
  EXPECT_EQ(root["number"].real(), 5.0);
  EXPECT_TRUE(root["truth"].truth());
  EXPECT_TRUE(root["nothing"].isNull());
  EXPECT_FALSE(root["text"].isNull());
}

TEST(JsonReader, KnowsThePathOfEachValue) {
  const JsonReader root = reading(R"({"modules": [{"address": 1}, {"a b": [[2]], "": 3}]})");
  const auto modules = root["modules"].elements();
  EXPECT_EQ(root.path(), "");
  EXPECT_EQ(modules.at(0)["address"].path(), "modules[0].address");
  EXPECT_EQ(modules.at(1)["a b"].elements().at(0).elements().at(0).path(),
            R"(modules[1]["a b"][0][0])");
  EXPECT_EQ(modules.at(1)[""].path(), R"(modules[1][""])");
  EXPECT_EQ(JsonReader::parse("[5]", "params").elements().at(0).path(), "params[0]");
  EXPECT_EQ(root.named("all")["modules"].path(), "all.modules");
}

TEST(JsonReader, NamesThePathOfWhatIsWrong) {
  const JsonReader root = reading(R"({"modules": [{}, {}, {"address": 300}]})");
  EXPECT_EQ(problemOf([&] { return root["modules"].elements().at(2)["address"].number(1, 247); }),
            "modules[2].address: 300 is not within 1 to 247");
  EXPECT_EQ(problemOf([&] { return root["modules"].elements().at(1)["address"]; }),
            "modules[1].address: missing");
}

TEST(JsonReader, SaysWhatAValueOfAnotherKindShouldBe) {
  const JsonReader root = reading(R"({"v": 5, "t": "x"})");
  EXPECT_EQ(problemOf([&] { return root["v"].text(); }), "v: 5 is not text");
  EXPECT_EQ(problemOf([&] { return root["v"].elements(); }), "v: 5 is not a list");
  EXPECT_EQ(problemOf([&] { return root["v"].members(); }), "v: 5 is not an object");
  EXPECT_EQ(problemOf([&] { return root["v"]["w"]; }), "v: 5 is not an object");
  EXPECT_EQ(problemOf([&] { return root["v"].truth(); }), "v: 5 is not true or false");
  EXPECT_EQ(problemOf([&] { return root["t"].real(); }), "t: \"x\" is not a number");
  EXPECT_EQ(problemOf([&] { return root["t"].number(0, 1); }),
            "t: \"x\" is not a whole number within 0 to 1");
  EXPECT_EQ(problemOf([] { return reading("7").text(); }), "7 is not text");
}

TEST(JsonReader, TakesTheWholeRangeOfSixtyFourBits) {
  using Signed = std::numeric_limits<std::int64_t>;
  using Unsigned = std::numeric_limits<std::uint64_t>;
  EXPECT_EQ(reading("18446744073709551615").number(0, Unsigned::max()), Unsigned::max());
  EXPECT_EQ(reading("-9223372036854775808").signedNumber(Signed::min(), Signed::max()),
            Signed::min());
  EXPECT_EQ(reading("9223372036854775807").wholeNumber(), Signed::max());
  EXPECT_EQ(reading("9223372036854775808").wholeNumber(), std::nullopt);
  EXPECT_EQ(
      problemOf([] { return reading("9223372036854775808").signedNumber(-1, Signed::max()); }),
      "9223372036854775808 is not within -1 to 9223372036854775807");
  EXPECT_EQ(problemOf([] { return reading("-1").number(0, 9); }), "-1 is not within 0 to 9");
  EXPECT_EQ(reading("1.0").wholeNumber(), std::nullopt);
  EXPECT_EQ(reading("true").wholeNumber(), std::nullopt);
}

TEST(JsonReader, ChoosesAmongTexts) {
  constexpr std::array<std::string_view, 2> choices{"zero", "blank"};
  EXPECT_EQ(reading(R"("blank")").choice(choices), 1U);
  EXPECT_EQ(problemOf([&] { return reading(R"("dots")").choice(choices); }),
            "\"dots\" is not one of zero, blank");
  EXPECT_EQ(problemOf([&] { return reading("1").choice(choices); }), "1 is not one of zero, blank");
}

TEST(JsonReader, FindsMembersOfObjectsAlone) {
  EXPECT_TRUE(reading(R"({"a": null})").has("a"));
  EXPECT_FALSE(reading(R"({"a": null})").has("b"));
  for (const char* text : {"[]", "\"a\"", "5", "null"}) {
    EXPECT_FALSE(reading(text).has("a")) << text;
  }
}

TEST(JsonReader, NamesAnUnknownKey) {
  const JsonReader root = reading(R"({"a": 1, "b": {"c": 2}})");
  EXPECT_EQ(problemOf([&] { return root.allowOnly({"a", "b"}), 0; }), "no problem");
  EXPECT_EQ(problemOf([&] { return root.allowOnly({"a"}), 0; }), "b: unknown key");
  EXPECT_EQ(problemOf([&] { return root["b"].allowOnly({"a"}), 0; }), "b.c: unknown key");
  EXPECT_EQ(problemOf([&] { return root["a"].allowOnly({"a"}), 0; }), "a: 1 is not an object");
}

TEST(JsonReader, CutsLongValuesAndKeysOff) {
  const std::string text = std::string(100'000, 'x');
  EXPECT_EQ(problemOf([&] { return reading("\"" + text + "\"").real(); }),
            "\"" + std::string(39, 'x') + "… is not a number");
  EXPECT_EQ(problemOf([&] { return reading("{}")[text]; }), std::string(80, 'x') + "…: missing");
}

TEST(JsonReader, CutsBetweenCharactersOfUtf8) {
  std::string text = "\"";
  for (int i = 0; i < 50; ++i) text += "ä";
  text += '"';
  std::string shown = "\"";
  for (int i = 0; i < 39; ++i) shown += "ä";
  EXPECT_EQ(reading(text).shown(), shown + "…");
}

TEST(JsonReader, TellsLineColumnAndCauseOfInvalidJson) {
  EXPECT_EQ(syntaxProblemOf(""),
            "invalid JSON at line 1, column 1: unexpected end of input; expected '[', '{', or a "
            "literal");
  EXPECT_THAT(syntaxProblemOf("{\n  \"a\": nonsense\n}"), HasSubstr("line 2, column 9: "));
  EXPECT_THAT(syntaxProblemOf("{}\nx"), HasSubstr("line 2, column 1: "));
  EXPECT_THAT(syntaxProblemOf("{\"a\": \"\xff\"}"), HasSubstr("invalid JSON at line 1"));
  EXPECT_LT(syntaxProblemOf("\"" + std::string(100'000, 'a')).size(), 200U);
}

TEST(JsonReader, TellsANumberThatNoTypeHolds) {
  EXPECT_EQ(syntaxProblemOf("[1,\n -1e999]"),
            "invalid JSON at line 2, column 2: number overflow: -1e999");
  EXPECT_LT(syntaxProblemOf(std::string(10'000, '9') + "e9").size(), 200U);
}

TEST(JsonReader, RefusesNestingDeeperThanSixtyFour) {
  const auto nested = [](std::size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
  };
  EXPECT_EQ(syntaxProblemOf(nested(64)), "no problem");
  EXPECT_EQ(syntaxProblemOf(nested(65)),
            "invalid JSON at line 1, column 65: lists and objects are nested deeper than 64");
}

TEST(JsonReader, RefusesEndlessNestingWithoutParsingIt) {
  constexpr std::size_t megabytes = 10'000'000;
  EXPECT_THAT(syntaxProblemOf(std::string(megabytes, '[')), HasSubstr("deeper than 64"));
  std::string objects;
  while (objects.size() < megabytes) objects += "{\"a\":";
  EXPECT_THAT(syntaxProblemOf(objects), HasSubstr("column 321: lists and objects"));
}

TEST(JsonReader, BracketsInTextsDoNotNest) {
  const std::string brackets(100, '[');
  EXPECT_EQ(reading("[\"\\\"" + brackets + "\"]").elements().at(0).text(), "\"" + brackets);
  EXPECT_EQ(reading("[\"\\\\\", \"" + brackets + "\"]").elements().at(1).text(), brackets);
}

TEST(JsonReader, TakesTheLastOfRepeatedKeysUnlessTheyAreRefused) {
  const std::string text = R"({"a": {"b": 1, "b": 2}})";
  EXPECT_EQ(reading(text)["a"]["b"].number(0, 9), 2U);
  EXPECT_EQ(problemOf([&] { return JsonReader::parse(text, "", RepeatedKeys::Refused); }),
            "the key \"b\" occurs twice in one object");
  EXPECT_EQ(problemOf([] {
              return JsonReader::parse(R"([{"a": 1}, {"a": 1}])", "", RepeatedKeys::Refused);
            }),
            "no problem");
}

TEST(JsonReader, AValueOutlivesTheTextItCameFrom) {
  const auto value = [] { return reading(R"({"a": [1, "deep"]})")["a"].elements().at(1); }();
  EXPECT_EQ(value.text(), "deep");
}

}  // namespace
}  // namespace tessara::testing
