#include <gtest/gtest.h>

#include "base/Text.h"

namespace tessara {
namespace {

TEST(Text, ConvertsEveryPlaneFromUtf8AndBack) {
  const std::string all = "A\xC3\xBC\xE4\xB8\xAD\xF0\x9F\x98\x80";
  EXPECT_EQ(fromUtf8(all), u"A\u00FC\u4E2D\U0001F600");
  EXPECT_EQ(toUtf8(fromUtf8(all)), all);
}

TEST(Text, MalformedUtf8GivesReplacementCharacters) {
  EXPECT_EQ(fromUtf8("a\xFF"
                     "b"),
            u"a\uFFFDb");
  EXPECT_EQ(fromUtf8("\xC3"), u"\uFFFD");
  EXPECT_EQ(fromUtf8("\xC0\x80"), u"\uFFFD");
  EXPECT_EQ(fromUtf8("\xED\xA0\x80"), u"\uFFFD");
}

TEST(Text, LoneSurrogateGivesReplacementCharacter) {
  EXPECT_EQ(toUtf8(std::u16string{char16_t{0xD800}}), "\xEF\xBF\xBD");
  EXPECT_EQ(toUtf8(std::u16string{char16_t{0xDC00}, u'x'}), "\xEF\xBF\xBDx");
}

TEST(Text, HexTextIsTheSixteenBitPatternWithoutLeadingZeros) {
  EXPECT_EQ(hexText(128), u"80");
  EXPECT_EQ(hexText(0), u"0");
  EXPECT_EQ(hexText(-1), u"FFFF");
  EXPECT_EQ(hexText(-32768), u"8000");
}

TEST(Text, DecimalTextKeepsAllDigits) {
  EXPECT_EQ(decimalText(std::uint64_t{18446744073709551615U}), u"18446744073709551615");
  EXPECT_EQ(decimalText(std::int32_t{-5}), u"-5");
}

TEST(Text, ContainsIgnoresCaseAndLooksAnywhere) {
  EXPECT_TRUE(containsIgnoringCase(u"USB hART Adapter", u"Hart"));
  EXPECT_TRUE(containsIgnoringCase(u"com", u"COM"));
  EXPECT_TRUE(containsIgnoringCase(u"x", u""));
  EXPECT_FALSE(containsIgnoringCase(u"Har", u"Hart"));
}

TEST(Text, EqualIgnoresTheCaseOfLettersOnly) {
  EXPECT_TRUE(equalIgnoringCase("latin1", "LATIN1"));
  EXPECT_FALSE(equalIgnoringCase("latin1", "latin"));
  EXPECT_FALSE(equalIgnoringCase("@[`{", "`{@["));
  EXPECT_TRUE(equalIgnoringCase(u"Device", u"dEVICE"));
}

TEST(Text, UpperCaseChangesTheLettersAToZOnly) {
  EXPECT_EQ(upperCase("com3 \xC3\xA4_i`{"), "COM3 \xC3\xA4_I`{");
  EXPECT_EQ(upperCase(u"nfc\u00E4\u0131\uFF41"), u"NFC\u00E4\u0131\uFF41");
}

}  // namespace
}  // namespace tessara
