#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "localisation/ErrorOf.h"
#include "localisation/Language.h"
#include "localisation/ScriptedLocale.h"

namespace tessara {
namespace {

using ::testing::ElementsAre;
using testing::errorNumberOf;
using testing::ScriptedLocale;

TEST(CountryCode, IsReadInTheSizeQueriedBefore) {
  ScriptedLocale locale;
  locale.size = 3;
  locale.code = u"49";
  EXPECT_EQ(GetSystemCountryCode(locale), 49);
  EXPECT_THAT(locale.calls, ElementsAre(0, 3));
}

TEST(CountryCode, IsZeroWithoutReadingItIfTheSizeIsNotPositive) {
  for (const std::int32_t size : {0, -1}) {
    ScriptedLocale locale;
    locale.size = size;
    locale.code = u"49";
    EXPECT_EQ(GetSystemCountryCode(locale), 0);
    EXPECT_THAT(locale.calls, ElementsAre(0));
  }
}

TEST(CountryCode, IsZeroIfItCannotBeRead) {
  ScriptedLocale locale;
  locale.size = 3;
  EXPECT_EQ(GetSystemCountryCode(locale), 0);
}

TEST(CountryCode, IsCutAtTheFirstZeroCharacter) {
  ScriptedLocale locale;
  locale.code = std::u16string(
      u"33\0"
      u"9\0",
      5);
  locale.size = 5;
  EXPECT_EQ(GetSystemCountryCode(locale), 33);
}

TEST(CountryCode, NeedsNoZeroCharacter) {
  ScriptedLocale locale;
  locale.code = u"7";
  locale.size = 1;
  EXPECT_EQ(GetSystemCountryCode(locale), 7);
}

TEST(CountryCode, MayExceedSixteenBits) {
  ScriptedLocale locale;
  ScriptedLocale::standIn(locale, u"441534");
  EXPECT_EQ(GetSystemCountryCode(locale), 441534);
}

TEST(CountryCode, ThatIsNotANumberIsAConversionError) {
  for (const auto* text : {u"DE", u""}) {
    ScriptedLocale locale;
    ScriptedLocale::standIn(locale, text);
    EXPECT_EQ(errorNumberOf([&] { (void)GetSystemCountryCode(locale); }),
              ErrorNumber::TypeMismatch);
  }
}

TEST(CountryCode, SelectsALanguageOrEnglish) {
  EXPECT_EQ(languageOfCountry(33), 3);
  EXPECT_EQ(languageOfCountry(34), 4);
  EXPECT_EQ(languageOfCountry(43), 1);
  EXPECT_EQ(languageOfCountry(49), 1);
  for (const std::int32_t other : {0, 1, 7, 39, 41, 44, 48, 81, 86, 90, 351, -49}) {
    EXPECT_EQ(languageOfCountry(other), 2) << other;
  }
}

}  // namespace
}  // namespace tessara
