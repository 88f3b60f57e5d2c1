#include <gmock/gmock.h>

#include "serve/LineSplitter.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(LineSplitter, LinesEndAtLineFeeds) {
  LineSplitter splitter(100);
  EXPECT_THAT(splitter.add("a\nb\n\nc"), ElementsAre("a", "b", ""));
  EXPECT_THAT(splitter.add("d\n"), ElementsAre("cd"));
}

TEST(LineSplitter, ALineMayComeByteByByte) {
  LineSplitter splitter(100);
  EXPECT_THAT(splitter.add("a"), IsEmpty());
  EXPECT_THAT(splitter.add(""), IsEmpty());
  EXPECT_THAT(splitter.add("\xc3"), IsEmpty());
  EXPECT_THAT(splitter.add("\xa4\n"), ElementsAre("a\xc3\xa4"));
}

TEST(LineSplitter, TheLastLineNeedsNoEnd) {
  LineSplitter splitter(100);
  EXPECT_THAT(splitter.add("a\nb"), ElementsAre("a"));
  EXPECT_THAT(splitter.finish(), ElementsAre("b"));
  EXPECT_THAT(splitter.finish(), IsEmpty());
}

TEST(LineSplitter, NothingBegunIsNoLastLine) {
  LineSplitter splitter(100);
  splitter.add("a\n");
  EXPECT_THAT(splitter.finish(), IsEmpty());
}

TEST(LineSplitter, ALineOfTheGreatestLengthIsWhole) {
  LineSplitter splitter(3);
  EXPECT_THAT(splitter.add("abc\n"), ElementsAre("abc"));
}

TEST(LineSplitter, ALongerLineIsOneGapAndTheNextLineIsWhole) {
  LineSplitter splitter(3);
  EXPECT_THAT(splitter.add("abcd\nef\n"), ElementsAre(std::nullopt, "ef"));
  EXPECT_THAT(splitter.add("ab"), IsEmpty());
  EXPECT_THAT(splitter.add("cd"), IsEmpty());
  EXPECT_THAT(splitter.add("e"), IsEmpty());
  EXPECT_THAT(splitter.add("f\ngh\n"), ElementsAre(std::nullopt, "gh"));
}

TEST(LineSplitter, ALongerLineWithoutAnEndIsAGap) {
  LineSplitter splitter(3);
  splitter.add("abcd");
  EXPECT_THAT(splitter.finish(), ElementsAre(std::nullopt));
}

}  // namespace
}  // namespace tessara::testing
