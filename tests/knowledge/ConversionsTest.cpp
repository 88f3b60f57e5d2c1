#include <cmath>
#include <limits>
#include <map>

#include <gtest/gtest.h>

#include "FakePlatform.h"
#include "base/RunTimeError.h"
#include "knowledge/Conversions.h"

namespace tessara {
namespace {

using testing::CallLog;
using testing::FakeRegistryHelper;

TEST(CommaToPoint, ReplacesTheFirstCommaByAPoint) {
  EXPECT_EQ(CommaToPoint(u"1,234"), u"1.234");
  EXPECT_EQ(CommaToPoint(u"1,2,3"), u"1.2,3");
  EXPECT_EQ(CommaToPoint(u",5"), u".5");
}

TEST(CommaToPoint, KeepsTextWithoutAComma) {
  EXPECT_EQ(CommaToPoint(u""), u"");
  EXPECT_EQ(CommaToPoint(u"1.234"), u"1.234");
}

TEST(BytesOfAWord, AreTheSameForANegativeWordAndItsUnsignedForm) {
  EXPECT_EQ(LowByte(-1), 255);
  EXPECT_EQ(HighByte(-1), 255);
  EXPECT_EQ(HighByte(255), 0);
  EXPECT_EQ(LowByte(0x1234), 0x34);
  EXPECT_EQ(HighByte(0x1234), 0x12);
  EXPECT_EQ(LowByte(-32768), 0);
  EXPECT_EQ(HighByte(-32768), 0x80);
  EXPECT_EQ(HighByte(0x8000), 0x80);
}

TEST(BytesOfAWord, IgnoreAllBitsAboveTheWord) {
  EXPECT_EQ(LowByte(0x7F0000AB), 0xAB);
  EXPECT_EQ(HighByte(0x7F00CD00), 0xCD);
  EXPECT_EQ(HighByte(0x00010000), 0);
}

class SystemSeparator : public ::testing::Test {
 protected:
  std::u16string onSystemWith(const std::u16string& separator, const std::u16string& text) {
    settings[u"Control Panel\\International\\|sDecimal"] = separator;
    return ToLocaleDecimal(text, registry);
  }

  CallLog log;
  std::map<std::u16string, Variant> settings;
  FakeRegistryHelper registry{log, settings};
};

TEST_F(SystemSeparator, ReplacesAPointWhereNumbersHaveAComma) {
  EXPECT_EQ(onSystemWith(u",", u"1.230"), u"1,230");
  EXPECT_EQ(onSystemWith(u",", u"1.2.3"), u"1,2.3");
}

TEST_F(SystemSeparator, ReplacesACommaWhereNumbersHaveAPoint) {
  EXPECT_EQ(onSystemWith(u".", u"1,230"), u"1.230");
  EXPECT_EQ(onSystemWith(u".", u"1,2,3"), u"1.2,3");
}

TEST_F(SystemSeparator, KeepsTextThatContainsIt) {
  EXPECT_EQ(onSystemWith(u".", u"1.230"), u"1.230");
  EXPECT_EQ(onSystemWith(u",", u"1,230"), u"1,230");
  EXPECT_EQ(onSystemWith(u".", u"1.2,3"), u"1.2,3");
  EXPECT_EQ(onSystemWith(u",", u"1.2,3"), u"1.2,3");
}

TEST_F(SystemSeparator, KeepsTextWithoutASeparator) {
  EXPECT_EQ(onSystemWith(u",", u"12"), u"12");
  EXPECT_EQ(onSystemWith(u".", u""), u"");
}

TEST_F(SystemSeparator, ThatIsNeitherPointNorCommaReplacesAComma) {
  EXPECT_EQ(onSystemWith(u"'", u"1,5"), u"1'5");
  EXPECT_EQ(onSystemWith(u"'", u"1.5"), u"1.5");
  EXPECT_EQ(onSystemWith(u"::", u"1,5"), u"1::5");
}

TEST_F(SystemSeparator, ThatIsEmptyOrMissingKeepsTheText) {
  EXPECT_EQ(onSystemWith(u"", u"1,5"), u"1,5");
  settings.clear();
  EXPECT_EQ(ToLocaleDecimal(u"1.5", registry), u"1.5");
}

TEST_F(SystemSeparator, IsReadAtEachCallEvenForAnEmptyText) {
  EXPECT_EQ(onSystemWith(u",", u"1.5"), u"1,5");
  EXPECT_EQ(onSystemWith(u".", u"1,5"), u"1.5");
  EXPECT_EQ(onSystemWith(u".", u""), u"");
  const std::string read = "GetValue 1 Control Panel\\International\\|sDecimal";
  EXPECT_EQ(log.entries(), (std::vector<std::string>{read, read, read}));
}

class FailingRegistry : public FakeRegistryHelper {
 public:
  using FakeRegistryHelper::FakeRegistryHelper;
  [[nodiscard]] Variant GetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                                 const std::u16string& /*name*/) override {
    throw RunTimeError(ErrorNumber::InvalidCall, "the settings cannot be read");
  }
};

TEST_F(SystemSeparator, ThatCannotBeReadIsTheCallersFailure) {
  FailingRegistry failing(log, settings);
  EXPECT_THROW((void)ToLocaleDecimal(u"1.5", failing), RunTimeError);
  EXPECT_THROW((void)ToLocaleDecimal(u"", failing), RunTimeError);
}

struct Rounding {
  double number;
  double rounded;
};

class RoundingToThreeDecimals : public ::testing::TestWithParam<Rounding> {};

TEST_P(RoundingToThreeDecimals, GivesTheNearestNumber) {
  EXPECT_EQ(RoundToThreeDecimals(GetParam().number), GetParam().rounded);
  EXPECT_EQ(RoundToThreeDecimals(-GetParam().number), -GetParam().rounded);
}

INSTANTIATE_TEST_SUITE_P(Plain, RoundingToThreeDecimals,
                         ::testing::Values(Rounding{0, 0}, Rounding{1.2344, 1.234},
                                           Rounding{1.2346, 1.235}, Rounding{10.5, 10.5},
                                           Rounding{0.0004, 0}, Rounding{0.0006, 0.001},
                                           Rounding{static_cast<double>(1.2F), 1.2}));

/// Multiples of 1/16 are ties in binary as in decimal notation.
INSTANTIATE_TEST_SUITE_P(RealTies, RoundingToThreeDecimals,
                         ::testing::Values(Rounding{0.0625, 0.062}, Rounding{0.1875, 0.188},
                                           Rounding{0.3125, 0.312}, Rounding{0.4375, 0.438},
                                           Rounding{1.0625, 1.062}, Rounding{1.6875, 1.688}));

/// These look like ties, but the stored number is slightly smaller or larger.
INSTANTIATE_TEST_SUITE_P(StoredBelowTheTie, RoundingToThreeDecimals,
                         ::testing::Values(Rounding{1.0635, 1.063}, Rounding{0.0055, 0.005},
                                           Rounding{1.0995, 1.099}, Rounding{1.0025, 1.002}));
INSTANTIATE_TEST_SUITE_P(StoredAboveTheTie, RoundingToThreeDecimals,
                         ::testing::Values(Rounding{1.0645, 1.065}, Rounding{0.0005, 0.001},
                                           Rounding{2.0485, 2.049}, Rounding{1.0015, 1.002}));

INSTANTIATE_TEST_SUITE_P(Large, RoundingToThreeDecimals,
                         ::testing::Values(Rounding{1e300, 1e300},
                                           Rounding{0x1p43 + 0x1p-9, 0x1p43 + 0x1p-9},
                                           Rounding{std::numeric_limits<double>::infinity(),
                                                    std::numeric_limits<double>::infinity()},
                                           Rounding{123456789.0004, 123456789.0}));

TEST(RoundToThreeDecimals, KeepsNotANumber) {
  EXPECT_TRUE(std::isnan(RoundToThreeDecimals(std::numeric_limits<double>::quiet_NaN())));
}

}  // namespace
}  // namespace tessara
