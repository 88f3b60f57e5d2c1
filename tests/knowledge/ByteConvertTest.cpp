#include <limits>

#include <gtest/gtest.h>

#include "knowledge/modByteConvert.h"

namespace tessara {
namespace {

constexpr WideDecimal twoTo32 = WideDecimal{1} << 32;

TEST(WordsToUnsigned32, PutsTheHighWordBeforeTheLowWord) {
  EXPECT_TRUE(WordsToUnsigned32(0, 0) == 0);
  EXPECT_TRUE(WordsToUnsigned32(0x1234, 0x5678) == 0x12345678);
}

TEST(WordsToUnsigned32, ReadsNegativeWordsAsUnsigned) {
  EXPECT_TRUE(WordsToUnsigned32(-1, -1) == 4294967295);
  EXPECT_TRUE(WordsToUnsigned32(0, -32768) == 32768);
  EXPECT_TRUE(WordsToUnsigned32(-32768, 0) == 2147483648);
}

TEST(WordsToUnsigned32, KeepsTheLow15BitsOfANegativeNumberBelowAWord) {
  EXPECT_TRUE(WordsToUnsigned32(0, -32769) == 32767 + 32768);
  EXPECT_TRUE(WordsToUnsigned32(0, std::numeric_limits<std::int32_t>::min()) == 32768);
}

TEST(WordsToUnsigned32, DoesNotTruncateArgumentsAboveAWord) {
  EXPECT_TRUE(WordsToUnsigned32(0, 65536) == 65536);
  EXPECT_TRUE(WordsToUnsigned32(65536, 1) == twoTo32 + 1);
  const std::int32_t largest = std::numeric_limits<std::int32_t>::max();
  EXPECT_TRUE(WordsToUnsigned32(largest, largest) == WideDecimal{largest} * 65537);
}

TEST(Join32To64, HoldsTheLargestUnsigned64BitNumber) {
  EXPECT_TRUE(Join32To64(0, 0) == 0);
  EXPECT_TRUE(Join32To64(1, 2) == twoTo32 + 2);
  EXPECT_TRUE(Join32To64(4294967295, 4294967295) == std::numeric_limits<std::uint64_t>::max());
}

TEST(Join32To64, ReadsANegativeLowPartAsUnsigned) {
  EXPECT_TRUE(Join32To64(0, -1) == 4294967295);
  EXPECT_TRUE(Join32To64(0, -2147483648LL) == 2147483648);
  EXPECT_TRUE(Join32To64(3, -2147483648LL) == 3 * twoTo32 + 2147483648);
}

TEST(Join32To64, KeepsANegativeHighPartNegative) {
  EXPECT_TRUE(Join32To64(-1, 0) == -twoTo32);
  EXPECT_TRUE(Join32To64(-1, 5) == -twoTo32 + 5);
  EXPECT_TRUE(Join32To64(-2, -1) == -2 * twoTo32 + 4294967295);
}

}  // namespace
}  // namespace tessara
