#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "FakePlatform.h"
#include "knowledge/Datasheet.h"

namespace tessara {
namespace {

/// A system in a country that counts the queries.
class CountedLocale : public testing::FakeLocale {
 public:
  explicit CountedLocale(std::u16string code) {
    if (!code.empty()) {
      country = std::move(code) + u'\0';
    }
  }
  [[nodiscard]] std::int32_t countryCodeSize() const override {
    ++asked;
    return FakeLocale::countryCodeSize();
  }
  mutable int asked = 0;
};

struct Sheet {
  std::int16_t language;
  const char* tag;
};

class SheetOfLanguage : public ::testing::TestWithParam<Sheet> {};

TEST_P(SheetOfLanguage, DoesNotDependOnTheCountry) {
  const CountedLocale germany(u"49");
  EXPECT_STREQ(datasheetTag(GetParam().language, germany), GetParam().tag);
  EXPECT_EQ(germany.asked, 0);
}

INSTANTIATE_TEST_SUITE_P(Table, SheetOfLanguage,
                         ::testing::Values(Sheet{1, "DatasheetDE"}, Sheet{2, "DatasheetEN"},
                                           Sheet{3, "DatasheetFR"}, Sheet{4, "DatasheetEN"},
                                           Sheet{5, "DatasheetIT"}, Sheet{6, "DatasheetEN"},
                                           Sheet{8, "DatasheetEN"}, Sheet{11, "DatasheetEN"},
                                           Sheet{12, "DatasheetEN"}, Sheet{-1, "DatasheetEN"}));

struct Country {
  const char16_t* code;
  const char* tag;
};

class SheetOfCountry : public ::testing::TestWithParam<Country> {};

TEST_P(SheetOfCountry, ServesLanguageZero) {
  const CountedLocale system(GetParam().code);
  EXPECT_STREQ(datasheetTag(0, system), GetParam().tag);
  EXPECT_EQ(system.asked, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Table, SheetOfCountry,
    ::testing::Values(Country{u"33", "DatasheetFR"}, Country{u"34", "DatasheetEN"},
                      Country{u"43", "DatasheetDE"}, Country{u"49", "DatasheetDE"},
                      Country{u"39", "DatasheetEN"}, Country{u"1", "DatasheetEN"},
                      Country{u"0", "DatasheetEN"}, Country{u"", "DatasheetEN"}));

}  // namespace
}  // namespace tessara
