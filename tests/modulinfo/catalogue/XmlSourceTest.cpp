#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/XmlSource.h"
#include "modulinfo/catalogue/CatalogueText.h"

namespace tessara {
namespace {

using testing::linesOf;

/// The text in units of `bytesOfUnit` bytes.
std::string inUnits(std::u32string_view text, std::size_t bytesOfUnit, bool highByteFirst) {
  std::string bytes;
  for (const char32_t unit : text) {
    for (std::size_t i = 0; i < bytesOfUnit; ++i) {
      const std::size_t shift = 8 * (highByteFirst ? bytesOfUnit - 1 - i : i);
      bytes += static_cast<char>((unit >> shift) & 0xFFU);
    }
  }
  return bytes;
}

TEST(XmlSource, CountsLinesFromOne) {
  const XmlSource source("<a>\n\r\n<b/></a>");
  EXPECT_EQ(source.lineAt(0), 1U);
  EXPECT_EQ(source.lineAt(3), 1U);
  EXPECT_EQ(source.lineAt(4), 2U);
  EXPECT_EQ(source.lineAt(6), 3U);
  EXPECT_EQ(source.lineAt(source.text().size()), 3U);
  EXPECT_EQ(XmlSource("").lineAt(0), 1U);
}

TEST(XmlSource, LeavesTheByteOrderMarkOut) {
  EXPECT_EQ(XmlSource("\xEF\xBB\xBF<a/>").text(), "<a/>");
}

TEST(XmlSource, ReadsUnitsOfTwoAndFourBytesWithAndWithoutMark) {
  for (const std::size_t size : {std::size_t{2}, std::size_t{4}}) {
    for (const bool highFirst : {true, false}) {
      EXPECT_EQ(XmlSource(inUnits(U"<ä/>", size, highFirst)).text(), "<ä/>");
      EXPECT_EQ(XmlSource(inUnits(U"\uFEFF<ä/>", size, highFirst)).text(), "<ä/>");
    }
  }
}

TEST(XmlSource, ReadsCharactersBeyondTheFirstPlane) {
  EXPECT_EQ(XmlSource(inUnits(U"<a>\U0001F600", 4, true)).text(), "<a>\U0001F600");
  EXPECT_EQ(XmlSource(inUnits(U"<\xD83D\xDE00", 2, false)).text(), "<\U0001F600");
  EXPECT_EQ(XmlSource(inUnits(U"<\x110000", 4, false)).text(), "<\uFFFD");
}

TEST(XmlSource, ReadsLatin1IfTheFileDeclaresIt) {
  EXPECT_EQ(XmlSource("<?xml version='1.0' encoding='ISO-8859-1'?><\xE4/>").text(),
            "<?xml version='1.0' encoding='ISO-8859-1'?><ä/>");
  EXPECT_EQ(XmlSource("<?xml version=\"1.0\" encoding=\"latin1\"?><\xE4/>").text(),
            "<?xml version=\"1.0\" encoding=\"latin1\"?><ä/>");
  EXPECT_EQ(XmlSource("<a>\xC3\xA4 \"latin1\"?></a>").text(), "<a>ä \"latin1\"?></a>");
}

TEST(XmlSource, TheLineOfAProblemIsRightInEveryEncoding) {
  const std::u32string text = U"<Ä>\n<Ü a='1'\nb='x'><Device/></Ü>\n<F/></Ä>";
  const auto expected = linesOf(checkCatalogue(XmlSource(inUnits(text, 2, true)).text()).problems);
  EXPECT_THAT(expected.front(), ::testing::StartsWith("2: place 1 of this family"));
  EXPECT_THAT(expected.back(), ::testing::StartsWith("4: the family holds no Device"));
  EXPECT_EQ(linesOf(checkCatalogue(inUnits(text, 2, true)).problems), expected);
  EXPECT_EQ(linesOf(checkCatalogue(inUnits(text, 2, false)).problems), expected);
  EXPECT_EQ(linesOf(checkCatalogue(inUnits(text, 4, false)).problems), expected);
}

}  // namespace
}  // namespace tessara
