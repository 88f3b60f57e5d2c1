#include <gtest/gtest.h>

#include "ControlFixture.h"
#include "access/RegisterDecoding.h"

namespace tessara::testing {
namespace {

const BitFieldHelper bits;

float versionOf(std::int32_t word) {
  return static_cast<float>(DecodeVersionWord(word, bits));
}

TEST(VersionWord, FourDigitsAreReadAsANumberWithThreeDecimals) {
  EXPECT_DOUBLE_EQ(DecodeVersionWord(0x1234, bits), 1.234);
  EXPECT_DOUBLE_EQ(DecodeVersionWord(0, bits), 0);
}

TEST(VersionWord, DigitsAboveNineAddTheirWeight) {
  EXPECT_DOUBLE_EQ(DecodeVersionWord(0x1A00, bits), 2);
}

TEST(VersionWord, ANegativeWordGivesItsTopDigit) {
  EXPECT_DOUBLE_EQ(DecodeVersionWord(static_cast<std::int16_t>(0xF000), bits), 15);
  EXPECT_DOUBLE_EQ(DecodeVersionWord(-1, bits), 15 + 15 * 0.1 + 15 * 0.01 + 15 * 0.001);
}

struct VersionRow {
  std::int32_t word;
  float number;
  const char16_t* text;
};

class VersionTexts : public ::testing::TestWithParam<VersionRow> {};

TEST_P(VersionTexts, DependOnTheirNumberOfCharacters) {
  EXPECT_EQ(versionOf(GetParam().word), GetParam().number);
  EXPECT_EQ(VersionText(versionOf(GetParam().word), u"."), GetParam().text);
  EXPECT_EQ(VersionText(versionOf(GetParam().word), u","), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Words, VersionTexts,
    ::testing::Values(VersionRow{0x1234, 1.234F, u"1.234"}, VersionRow{0x1230, 1.23F, u"1.230"},
                      VersionRow{0x1200, 1.2F, u"1.200"}, VersionRow{0x1000, 1.0F, u"1.000"},
                      VersionRow{0xA000, 10.0F, u"10"}, VersionRow{0xA500, 10.5F, u"10.50"},
                      VersionRow{0x0000, 0.0F, u"0.000"}));

TEST(VersionTexts, EveryDecimalWordKeepsItsDigits) {
  for (std::int32_t n = 0; n < 10000; ++n) {
    const std::int32_t word = (n / 1000 << 12) | (n / 100 % 10 << 8) | (n / 10 % 10 << 4) | n % 10;
    const std::string digits = std::to_string(10000 + n);
    EXPECT_EQ(toUtf8(VersionText(versionOf(word), u".")),
              digits.substr(1, 1) + "." + digits.substr(2));
  }
}

TEST(SerialNumber, IsReadLeastSignificantWordFirst) {
  EXPECT_EQ(SerialNumberOf({1, 2, 3, 4}), 0x0004000300020001U);
}

TEST(SerialNumber, ZeroWordsAreZeroAndFullWordsTheLargestNumber) {
  EXPECT_EQ(SerialNumberOf({0, 0, 0, 0}), 0U);
  EXPECT_EQ(SerialNumberOf({-1, -1, -1, -1}), 18446744073709551615U);
}

TEST(SerialNumber, AWordWithItsTopBitSetCountsAsUnsigned) {
  EXPECT_EQ(SerialNumberOf({-32768, 0, 0, 0}), 32768U);
  EXPECT_EQ(SerialNumberOf({0, 0, 0, -32768}), 0x8000000000000000U);
}

TEST(SerialNumber, ElementsBeyond64BitsOverflow) {
  EXPECT_EQ(errorNumberOf([] { (void)SerialNumberOf({0, 0, 0, 70000}); }), 6);
}

TEST(SerialNumber, AMissingWordIsASubscriptError) {
  EXPECT_EQ(errorNumberOf([] { (void)SerialNumberOf({1, 2, 3}); }), 9);
}

TEST(NameText, TakesTheHighByteOfEachWordFirstAndTrimsNothing) {
  DeviceWords words(16, 0x2000);
  words[0] = 0x4142;
  words[1] = static_cast<std::int16_t>(0xFC43);
  std::u16string expected = u"AB\u00FCC";
  for (int i = 2; i < 16; ++i) {
    expected += u' ';
    expected += u'\0';
  }
  EXPECT_EQ(NameText(words), expected);
  EXPECT_EQ(NameText(words).size(), 32U);
}

TEST(NameText, TooFewWordsAreASubscriptError) {
  EXPECT_EQ(errorNumberOf([] { (void)NameText(DeviceWords(15)); }), 9);
}

TEST(HartText, OmitsTheStatusBytes) {
  EXPECT_EQ(HartText({0, 64, 0x48, 0x31}), u"H1");
}

TEST(HartText, IsEmptyForTwoElementsAndForNone) {
  EXPECT_EQ(HartText({0, 0}), u"");
  EXPECT_EQ(HartText({}), u"");
}

TEST(HartText, AnElementThatIsNotACharacterIsAnInvalidCall) {
  EXPECT_EQ(errorNumberOf([] { (void)HartText({0, 0, -1}); }), 5);
  EXPECT_EQ(errorNumberOf([] { (void)HartText({0, 0, 65536}); }), 5);
}

TEST(Elements, MissingIsASubscriptErrorAndTooLargeForAWordAnOverflow) {
  EXPECT_EQ(errorNumberOf([] { (void)elementOf({}, 0); }), 9);
  EXPECT_EQ(errorNumberOf([] { (void)wordOf({40000}, 0); }), 6);
  EXPECT_EQ(errorNumberOf([] { (void)wordOf({-32769}, 0); }), 6);
  EXPECT_EQ(wordOf({-32768}, 0), -32768);
  EXPECT_EQ(elementOf({40000}, 0), 40000);
}

}  // namespace
}  // namespace tessara::testing
