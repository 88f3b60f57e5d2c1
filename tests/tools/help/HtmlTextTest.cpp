#include <gtest/gtest.h>

#include "tools/help/HtmlText.h"

namespace tessara {
namespace {

TEST(HtmlText, NamesWhatHtmlWouldTakeForItsOwn) {
  EXPECT_EQ(asHtml("a < b & \"c\" > d ä"), "a &lt; b &amp; &quot;c&quot; &gt; d ä");
  EXPECT_EQ(asHtml("&lt;"), "&amp;lt;");
}

TEST(HtmlText, LeavesOutTagsAndResolvesEntities) {
  EXPECT_EQ(withoutTags("<b>a</b> -&gt;&nbsp;<img src=\"x\">b"), "a -> b");
  EXPECT_EQ(withoutTags("&amp;lt;"), "&lt;");
}

TEST(HtmlText, WritesOtherThanAsciiAsNumbers) {
  EXPECT_EQ(asAsciiHtml("Größe <1>"), "Gr&#246;&#223;e &lt;1&gt;");
}

}  // namespace
}  // namespace tessara
