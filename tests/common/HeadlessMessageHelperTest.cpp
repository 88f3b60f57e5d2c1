#include <sstream>

#include <gtest/gtest.h>

#include "common/HeadlessMessageHelper.h"

namespace tessara {
namespace {

TEST(HeadlessMessageHelper, PrintsTitleAndTextAndAnswersOk) {
  std::ostringstream out;
  HeadlessMessageHelper messages(out);
  EXPECT_EQ(messages.Show(u"Fehler XML-Datei!", MessageStyle::Error, u"MERIDEX_CONF"), 1);
  EXPECT_EQ(messages.Show(u"für später", MessageStyle::Warning, u""), 1);
  EXPECT_EQ(out.str(), "MERIDEX_CONF: Fehler XML-Datei!\nfür später\n");
}

}  // namespace
}  // namespace tessara
