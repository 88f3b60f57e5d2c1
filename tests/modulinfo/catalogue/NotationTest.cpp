#include <gtest/gtest.h>

#include "catalogue/Notation.h"

namespace tessara {
namespace {

TEST(Notation, AWholeNumberIsTheSameOnEverySystem) {
  EXPECT_EQ(wholeNumber(u"0"), 0);
  EXPECT_EQ(wholeNumber(u" -17 "), -17);
  EXPECT_EQ(wholeNumber(u"2147483647"), 2147483647);
  for (const char16_t* text : {u"", u"x", u"1.5", u"1,5", u"0x10", u"2147483648", u"1 000"}) {
    EXPECT_EQ(wholeNumber(text), std::nullopt);
  }
}

TEST(Notation, AVersionMayHaveAPointOrAComma) {
  EXPECT_EQ(versionNumber(u"1.23"), 1.23);
  EXPECT_EQ(versionNumber(u"1,23"), 1.23);
  EXPECT_EQ(versionNumber(u"1.2304"), 1.23);
  EXPECT_EQ(versionNumber(u"2"), 2.0);
  for (const char16_t* text : {u"", u"V1", u"1.2.3", u"1.2,3"}) {
    EXPECT_EQ(versionNumber(text), std::nullopt);
  }
}

}  // namespace
}  // namespace tessara
