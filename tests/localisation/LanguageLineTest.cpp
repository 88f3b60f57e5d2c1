#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "localisation/ErrorOf.h"
#include "localisation/LanguageBytes.h"
#include "localisation/LanguageFile.h"

namespace tessara {
namespace {

using ::testing::ElementsAre;
using testing::errorNumberOf;
using testing::utf16Bytes;

std::vector<std::u16string> linesOf(std::u16string_view text) {
  LanguageFile file(utf16Bytes(text));
  std::vector<std::u16string> lines;
  while (!file.atEnd()) {
    lines.push_back(ReadLanguageLine(file));
  }
  return lines;
}

TEST(LanguageLine, EndsWithCrLf) {
  EXPECT_THAT(linesOf(u"Adresse\r\nCOM-Port\r\n"), ElementsAre(u"Adresse", u"COM-Port"));
}

TEST(LanguageLine, KeepsItsBlanks) {
  EXPECT_THAT(linesOf(u"  a b  \r\n \r\n"), ElementsAre(u"  a b  ", u" "));
}

TEST(LanguageLine, SkipsTheUnitAfterCr) {
  EXPECT_THAT(linesOf(u"ab\rXcd\r\n"), ElementsAre(u"ab", u"cd"));
  EXPECT_THAT(linesOf(u"ab\r\rcd\r\n"), ElementsAre(u"ab", u"cd"));
}

TEST(LanguageLine, ReadsALoneLfAsText) {
  EXPECT_THAT(linesOf(u"one\ntwo\r\n"), ElementsAre(u"one\ntwo"));
}

TEST(LanguageLine, KeepsItsFirstUnitWhateverItIs) {
  EXPECT_THAT(linesOf(u"\rX\r\n"), ElementsAre(u"\rX"));
  EXPECT_THAT(linesOf(u"\nX\r\n"), ElementsAre(u"\nX"));
}

TEST(LanguageLine, StartsWithTheCrLfOfABlankLine) {
  EXPECT_THAT(linesOf(u"a\r\n\r\nb\r\n"), ElementsAre(u"a", u"\r\nb"));
}

TEST(LanguageLine, StartsWithTheFirstOfTwoBlankLinesAndEndsWithTheSecond) {
  EXPECT_THAT(linesOf(u"a\r\n\r\n\r\nb\r\n"), ElementsAre(u"a", u"\r\n", u"b"));
}

TEST(LanguageLine, MayBeABlankLineAtTheEndOfTheFile) {
  EXPECT_THAT(linesOf(u"a\r\n\r\n"), ElementsAre(u"a", u"\r\n"));
}

TEST(LanguageLine, MayEndWithTheFile) {
  EXPECT_THAT(linesOf(u"a\r\nlast"), ElementsAre(u"a", u"last"));
}

TEST(LanguageLine, OfOneCharacterIsReadIfCrLfFollows) {
  EXPECT_THAT(linesOf(u"1\r\n"), ElementsAre(u"1"));
}

TEST(LanguageLine, OfOneCharacterAtTheEndOfTheFileIsAReadPastTheEnd) {
  EXPECT_EQ(errorNumberOf([] { (void)linesOf(u"a\r\n1"); }), ErrorNumber::InputPastEnd);
}

TEST(LanguageLine, WithCrAsTheLastUnitIsAReadPastTheEnd) {
  EXPECT_EQ(errorNumberOf([] { (void)linesOf(u"ab\r"); }), ErrorNumber::InputPastEnd);
}

TEST(LanguageLine, InAnEmptyFileIsAReadPastTheEnd) {
  LanguageFile file("");
  EXPECT_EQ(errorNumberOf([&] { (void)ReadLanguageLine(file); }), ErrorNumber::InputPastEnd);
}

TEST(LanguageLine, KeepsEveryCodeUnit) {
  LanguageFile file(std::string("\x00\x00\x00\xD8\xFF\xFF\x0D\x0A\x0D\x00\x0A\x00", 12));
  EXPECT_EQ(ReadLanguageLine(file), std::u16string(u"\0\xD800\xFFFF\x0A0D", 4));
  EXPECT_TRUE(file.atEnd());
}

TEST(LanguageFile, WithoutAnEndIsAnAccessError) {
  EXPECT_EQ(errorNumberOf([] { (void)LanguageFile::open("/dev/zero"); }), ErrorNumber::FileAccess);
}

TEST(LanguageFile, IsNotAtItsEndWithOneByteLeft) {
  LanguageFile file(utf16Bytes(u"ab\r\n") + 'x');
  EXPECT_EQ(ReadLanguageLine(file), u"ab");
  EXPECT_FALSE(file.atEnd());
  EXPECT_EQ(errorNumberOf([&] { (void)file.readUnit(); }), ErrorNumber::InputPastEnd);
  EXPECT_EQ(file.position(), 8U);
}

}  // namespace
}  // namespace tessara
