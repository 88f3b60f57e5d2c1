#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "base/Variant.h"

namespace tessara {
namespace {

template <typename Call>
ErrorNumber errorOf(Call call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  ADD_FAILURE() << "no error was raised";
  return ErrorNumber::InvalidCall;
}

TEST(Variant, TextFollowsTheSystemsDecimalSeparator) {
  EXPECT_EQ(toText(Variant{1.5}, u","), u"1,5");
  EXPECT_EQ(toText(Variant{1.5}, u"."), u"1.5");
  EXPECT_EQ(toText(Variant{}, u"."), u"");
  EXPECT_EQ(toText(Variant{std::int64_t{-7}}, u"."), u"-7");
  EXPECT_EQ(toText(Variant{std::uint64_t{18446744073709551615U}}, u"."), u"18446744073709551615");
  EXPECT_EQ(toText(Variant{true}, u"."), u"True");
  EXPECT_EQ(toText(Variant{false}, u"."), u"False");
}

TEST(Variant, NumberTextIsTheShortestThatConvertsBack) {
  EXPECT_EQ(numberText(1.2F, u"."), u"1.2");
  EXPECT_EQ(numberText(0.1, u"."), u"0.1");
  EXPECT_EQ(numberText(0.0, u"."), u"0");
  EXPECT_EQ(numberText(115200.0, u"."), u"115200");
  EXPECT_EQ(numberText(1e20, u"."), u"1e+20");
}

TEST(Variant, NumbersAreReadInTheSystemsNotation) {
  EXPECT_DOUBLE_EQ(toDouble(Variant{std::u16string{u"1,25"}}, u","), 1.25);
  EXPECT_DOUBLE_EQ(toDouble(Variant{std::u16string{u" -1.5e3 "}}, u"."), -1500);
  EXPECT_DOUBLE_EQ(toDouble(Variant{std::u16string{u"+7"}}, u"."), 7);
}

TEST(Variant, TextThatIsNotANumberIsATypeMismatch) {
  for (const auto* text :
       {u"", u" ", u"abc", u"1.2.3", u"1x", u"--1", u"+-1", u"1 2", u"inf", u"e5"}) {
    EXPECT_EQ(errorOf([&] { (void)toDouble(Variant{std::u16string{text}}, u"."); }),
              ErrorNumber::TypeMismatch);
  }
  EXPECT_EQ(errorOf([] { (void)toDouble(Variant{std::u16string{u"1.5"}}, u","); }),
            ErrorNumber::TypeMismatch);
}

TEST(Variant, WholeNumbersRoundTiesToEven) {
  EXPECT_EQ(toInt32(Variant{2.5}, u"."), 2);
  EXPECT_EQ(toInt32(Variant{3.5}, u"."), 4);
  EXPECT_EQ(toInt32(Variant{-2.5}, u"."), -2);
  EXPECT_EQ(toInt16(Variant{std::u16string{u"1.6"}}, u"."), 2);
}

TEST(Variant, NumberOutOfRangeIsAnOverflow) {
  EXPECT_EQ(errorOf([] { (void)toByte(Variant{std::int64_t{256}}, u"."); }), ErrorNumber::Overflow);
  EXPECT_EQ(errorOf([] { (void)toByte(Variant{std::int64_t{-1}}, u"."); }), ErrorNumber::Overflow);
  EXPECT_EQ(errorOf([] { (void)toInt16(Variant{std::int64_t{32768}}, u"."); }),
            ErrorNumber::Overflow);
  EXPECT_EQ(errorOf([] { (void)toInt32(Variant{2147483648.0}, u"."); }), ErrorNumber::Overflow);
  EXPECT_EQ(errorOf([] { (void)toDouble(Variant{std::u16string{u"1e999"}}, u"."); }),
            ErrorNumber::Overflow);
  EXPECT_EQ(errorOf([] { (void)narrowToInt16(-32769, "DeviceID"); }), ErrorNumber::Overflow);
}

TEST(Variant, LimitsOfEachTypeFit) {
  EXPECT_EQ(toByte(Variant{std::int64_t{255}}, u"."), 255);
  EXPECT_EQ(toInt16(Variant{std::int64_t{-32768}}, u"."), -32768);
  EXPECT_EQ(toInt32(Variant{2147483647.0}, u"."), 2147483647);
  EXPECT_EQ(narrowToInt16(32767, "DeviceID"), 32767);
}

TEST(Variant, TrueIsMinusOneAndNothingIsZero) {
  EXPECT_EQ(toInt32(Variant{true}, u"."), -1);
  EXPECT_EQ(toInt32(Variant{}, u"."), 0);
  EXPECT_TRUE(toBool(Variant{std::int64_t{2}}, u"."));
  EXPECT_FALSE(toBool(Variant{}, u"."));
}

}  // namespace
}  // namespace tessara
