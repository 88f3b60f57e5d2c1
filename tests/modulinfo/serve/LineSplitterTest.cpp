#include <gmock/gmock.h>

#include "serve/LineSplitter.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(LineSplitter, lines_end_at_line_feeds) {
  LineSplitter splitter(100);
  EXPECT_THAT(splitter.add("a\nb\n\nc"), ElementsAre("a", "b", ""));
  EXPECT_THAT(splitter.add("d\n"), ElementsAre("cd"));
}

TEST(LineSplitter, a_line_may_come_byte_by_byte) {
  LineSplitter splitter(100);
  EXPECT_THAT(splitter.add("a"), IsEmpty());
  EXPECT_THAT(splitter.add(""), IsEmpty());
  EXPECT_THAT(splitter.add("\xc3"), IsEmpty());
  EXPECT_THAT(splitter.add("\xa4\n"), ElementsAre("a\xc3\xa4"));
}

TEST(LineSplitter, the_last_line_needs_no_end) {
  LineSplitter splitter(100);
  EXPECT_THAT(splitter.add("a\nb"), ElementsAre("a"));
  EXPECT_THAT(splitter.finish(), ElementsAre("b"));
  EXPECT_THAT(splitter.finish(), IsEmpty());
}

TEST(LineSplitter, nothing_begun_is_no_last_line) {
  LineSplitter splitter(100);
  splitter.add("a\n");
  EXPECT_THAT(splitter.finish(), IsEmpty());
}

TEST(LineSplitter, a_line_of_the_greatest_length_is_whole) {
  LineSplitter splitter(3);
  EXPECT_THAT(splitter.add("abc\n"), ElementsAre("abc"));
}

TEST(LineSplitter, a_longer_line_is_one_gap_and_the_next_line_is_whole) {
  LineSplitter splitter(3);
  EXPECT_THAT(splitter.add("abcd\nef\n"), ElementsAre(std::nullopt, "ef"));
  EXPECT_THAT(splitter.add("ab"), IsEmpty());
  EXPECT_THAT(splitter.add("cd"), IsEmpty());
  EXPECT_THAT(splitter.add("e"), IsEmpty());
  EXPECT_THAT(splitter.add("f\ngh\n"), ElementsAre(std::nullopt, "gh"));
}

TEST(LineSplitter, a_longer_line_without_an_end_is_a_gap) {
  LineSplitter splitter(3);
  splitter.add("abcd");
  EXPECT_THAT(splitter.finish(), ElementsAre(std::nullopt));
}

}  // namespace
}  // namespace tessara::testing
