#include <gtest/gtest.h>

#include "base/FileProblem.h"

namespace tessara {
namespace {

TEST(FileProblem, IsPrintedOnOneLineAsCompilersDo) {
  EXPECT_EQ(toLine("a.xml", {3, "duplicate attribute", 7}), "a.xml:3:7: duplicate attribute");
}

TEST(FileProblem, LeavesOutALineOrColumnThatIsNotKnown) {
  EXPECT_EQ(toLine("a.xml", {3, "no text"}), "a.xml:3: no text");
  EXPECT_EQ(toLine("a.xml", {0, "the file cannot be read"}), "a.xml: the file cannot be read");
}

}  // namespace
}  // namespace tessara
