#include <gmock/gmock.h>

#include "base/RunTimeError.h"
#include "linux/SettingsValue.h"

namespace tessara::testing {
namespace {

ErrorNumber numberOfError(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  ADD_FAILURE() << "no error";
  return {};
}

TEST(SettingsValue, TakesASingleBackslashAsItStands) {
  EXPECT_EQ(decodedValue(R"(\Device\ftdi_sio9)"), R"(\Device\ftdi_sio9)");
  EXPECT_EQ(decodedValue(R"(C:\new\table)"), R"(C:\new\table)");
}

TEST(SettingsValue, TakesADoubledBackslashAsOne) {
  EXPECT_EQ(decodedValue(R"(\\Device\\VCP0)"), R"(\Device\VCP0)");
}

TEST(SettingsValue, TakesQuotationMarksAway) {
  EXPECT_EQ(decodedValue("\" a; b \" ; which one"), " a; b ");
  EXPECT_EQ(decodedValue(R"("a, \"b\"; c.png")"), R"(a, "b"; c.png)");
}

TEST(SettingsValue, EndsAtAComment) {
  EXPECT_EQ(decodedValue("2 \t ; English"), "2");
  EXPECT_EQ(decodedValue("; nothing"), "");
}

TEST(SettingsValue, ReadsHexadecimalEscapesThatProgramsHaveWritten) {
  EXPECT_EQ(decodedValue(R"(Ger\xe4t.png)"), "Gerät.png");
  EXPECT_EQ(decodedValue(R"(\xd83d\xde00)"), "\U0001F600");
}

TEST(SettingsValue, TakesWhatIsNotSuchAnEscapeAsItStands) {
  for (const std::string text :
       {R"(\Device\xbee0)", R"(\xr17v35x0)", R"(\x1 a)", R"(\x12345)", R"(ends in \)", R"(\x)"}) {
    EXPECT_EQ(decodedValue(text), text);
  }
}

TEST(SettingsValue, ReadsAListOfTextsAsText) {
  EXPECT_EQ(decodedValue("a, b.png"), "a, b.png");
  EXPECT_EQ(decodedValue(R"("1, 2")"), "1, 2");
}

TEST(SettingsValue, IsATypeMismatchIfItIsNeitherTextNorANumber) {
  for (const char* raw : {"@Invalid()", "@Variant(\\0\\0)", "@ByteArray(x)", "@home", "1, 2", "1,2",
                          "-1, 2.5, 3", "\"a.png", "a\" b"}) {
    EXPECT_EQ(numberOfError([&] { static_cast<void>(decodedValue(raw)); }),
              ErrorNumber::TypeMismatch)
        << raw;
  }
}

TEST(SettingsValue, IsReadAsItWasWritten) {
  for (const std::string text :
       {"2", "", "a b", " led by a blank", "ends in one ", "a, b; c = d", R"("quoted")", R"(\\x\)",
        R"(\Device\Silabser9)", R"(ends in \")", "@home", "@@", "Gerät 測定", R"(C:\new\table)",
        "#1", R"(\xe4)", "1,2", "\uFFFD"}) {
    EXPECT_EQ(decodedValue(encodedValue(text, "")), text);
  }
}

TEST(SettingsValue, KeepsTheCommentOfTheValueThatItReplaces) {
  EXPECT_EQ(encodedValue("9", "3 ; as Anna wants it"), "9 ; as Anna wants it");
  EXPECT_EQ(encodedValue("9", "\"a;b\"   ;x"), "9 ;x");
  EXPECT_EQ(encodedValue("9", "\"a;b"), "9");
}

TEST(SettingsValue, CannotHaveControlCharactersAndMustBeUtf8) {
  for (const std::string text : {"a\nb", "a\tb", "\x7f", "\xc2\x85", "\xe4"}) {
    EXPECT_EQ(numberOfError([&] { static_cast<void>(encodedValue(text, "")); }),
              ErrorNumber::InvalidCall);
  }
}

}  // namespace
}  // namespace tessara::testing
