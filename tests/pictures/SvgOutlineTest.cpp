#include <string>

#include <gtest/gtest.h>

#include "pictures/SvgOutline.h"

namespace tessara::testing {
namespace {

std::string repeatedText(const std::string& text, std::size_t count) {
  std::string all;
  for (std::size_t at = 0; at < count; ++at) all += text;
  return all;
}

std::string svgOf(const std::string& content) {
  return "<svg>" + content + "</svg>";
}

/// A group that is drawn `count` times.
std::string drawnTimes(std::size_t count) {
  return svgOf("<defs><g id='a'/></defs>" + repeatedText("<use href='#a'/>", count));
}

TEST(SvgOutline, FindsNothingWrongWithADrawing) {
  EXPECT_EQ(faultOfSvg("<svg/>"), std::nullopt);
  EXPECT_EQ(faultOfSvg(svgOf("<g><rect/></g><text>a &amp; b</text>")), std::nullopt);
}

TEST(SvgOutline, ReportsLineAndColumnOfWhatIsNotWellFormed) {
  EXPECT_EQ(faultOfSvg("<svg>\n <g></h>\n</svg>"), "line 2, column 7: mismatched tag");
  EXPECT_EQ(faultOfSvg("<svg>"), "line 1, column 6: no element found");
}

TEST(SvgOutline, ReportsAnotherRoot) {
  EXPECT_EQ(faultOfSvg("<html><svg/></html>"), "its root is not svg");
}

TEST(SvgOutline, AcceptsElementsUpToTheirMaximum) {
  EXPECT_EQ(faultOfSvg(svgOf(repeatedText("<g/>", SvgLimits::maxDrawn - 1))), std::nullopt);
  EXPECT_EQ(faultOfSvg(svgOf(repeatedText("<g/>", SvgLimits::maxDrawn))),
            "it draws more than 100000 elements");
}

TEST(SvgOutline, CountsAnElementAgainForEachUse) {
  // The root, the definitions with the group, and twice as many elements as there are uses.
  constexpr std::size_t uses = (SvgLimits::maxDrawn - 3) / 2;
  EXPECT_EQ(faultOfSvg(drawnTimes(uses)), std::nullopt);
  EXPECT_EQ(faultOfSvg(drawnTimes(uses + 1)), "it draws more than 100000 elements");
}

TEST(SvgOutline, RefusesElementsThatContainThemselves) {
  EXPECT_TRUE(faultOfSvg(svgOf("<g id='a'><use href='#a'/></g>")));
  EXPECT_TRUE(faultOfSvg(svgOf("<use id='a' href='#b'/><use id='b' href='#a'/>")));
}

TEST(SvgOutline, AcceptsUsesOfWhatIsNotThere) {
  EXPECT_EQ(faultOfSvg(svgOf("<use href='#a'/><use href='other.svg#a'/><use/>")), std::nullopt);
}

TEST(SvgOutline, AcceptsDepthUpToItsMaximum) {
  const auto nested = [](std::size_t depth) {
    return repeatedText("<svg>", depth) + repeatedText("</svg>", depth);
  };
  EXPECT_EQ(faultOfSvg(nested(SvgLimits::maxDepth)), std::nullopt);
  EXPECT_EQ(faultOfSvg(nested(SvgLimits::maxDepth + 1)), "it nests elements deeper than 256");
}

TEST(SvgOutline, RefusesALongChainOfUses) {
  std::string chain = "<g id='e0'/>";
  for (int index = 1; index < 1000; ++index) {
    chain = "<use id='e" + std::to_string(index) + "' href='#e" + std::to_string(index - 1) +
            "'/>" + chain;
  }
  EXPECT_TRUE(faultOfSvg(svgOf(chain)));
}

TEST(SvgOutline, AcceptsEntitiesUpToTheirMaximum) {
  const auto withEntities = [](std::size_t count) {
    return "<!DOCTYPE svg [<!ENTITY e '" + std::string(64, 'e') + "'>]>" +
           svgOf("<text>" + repeatedText("&e;", count) + "</text>");
  };
  EXPECT_EQ(faultOfSvg(withEntities(SvgLimits::maxEntityBytes / 64 - 4)), std::nullopt);
  EXPECT_EQ(faultOfSvg(withEntities(SvgLimits::maxEntityBytes / 64 + 4)),
            "its entities stand for more than 4096 bytes");
}

}  // namespace
}  // namespace tessara::testing
