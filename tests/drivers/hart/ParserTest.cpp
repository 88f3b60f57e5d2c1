#include <algorithm>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/hart/HartBytesOf.h"

namespace tessara::testing {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

const HartBytes requestBytes = bytesOf("82 A1 23 0A 0B 0C 14 00 19");
const HartBytes busy = bytesOf("86 A1 23 0A 0B 0C 14 02 20 40 7F");

HartBytes damaged(HartBytes frame) {
  frame.back() = static_cast<std::uint8_t>(frame.back() ^ 0x01U);
  return frame;
}

std::vector<HartDamage> damagesIn(const std::vector<HartReception>& found) {
  std::vector<HartDamage> damages;
  damages.reserve(found.size());
  for (const HartReception& one : found) damages.push_back(one.damage);
  return damages;
}

TEST(HartParser, FindsAFrameThatComesByteByByte) {
  HartParser parser;
  const HartBytes bytes = afterPreambles(busy);
  for (std::size_t place = 0; place + 1 < bytes.size(); ++place) {
    parser.feed({&bytes[place], 1});
    EXPECT_THAT(receptions(parser), IsEmpty()) << place;
  }
  parser.feed({&bytes.back(), 1});
  EXPECT_THAT(receptions(parser), SizeIs(1));
}

TEST(HartParser, NeedsTwoPreambles) {
  EXPECT_THAT(receptionsOf(afterPreambles(busy, 0)), IsEmpty());
  EXPECT_THAT(receptionsOf(afterPreambles(busy, 1)), IsEmpty());
  EXPECT_THAT(receptionsOf(afterPreambles(busy, 2)), SizeIs(1));
  EXPECT_THAT(receptionsOf(afterPreambles(busy, 400)), SizeIs(1));
}

TEST(HartParser, NeedsTheDelimiterRightAfterThePreambles) {
  EXPECT_THAT(receptionsOf(joined({bytesOf("FF FF 00"), busy})), IsEmpty());
  EXPECT_THAT(receptionsOf(joined({bytesOf("FF FF 00 FF"), busy})), IsEmpty());
}

TEST(HartParser, SkipsADamagedPreamble) {
  EXPECT_THAT(receptionsOf(joined({bytesOf("FF F7 FF 00 FF FF"), busy})), SizeIs(1));
}

TEST(HartParser, SkipsWhatIsNotADelimiter) {
  for (int byte = 0; byte < 0xFF; ++byte) {
    const bool isKind = (byte & 7) == 1 || (byte & 7) == 2 || (byte & 7) == 6;
    const bool isLayer = (byte & 0x18) <= 0x08;
    HartParser parser;
    parser.feed(HartBytes{0xFF, 0xFF, static_cast<std::uint8_t>(byte)});
    EXPECT_EQ(parser.isFrameOpen(), isKind && isLayer) << byte;
  }
}

TEST(HartParser, FindsEachOfSeveralFramesInOneDelivery) {
  const auto found = receptionsOf(joined({bytesOf("00"), afterPreambles(requestBytes),
                                          bytesOf("00 00"), afterPreambles(busy), bytesOf("00")}));
  ASSERT_THAT(found, SizeIs(2));
  EXPECT_EQ(found[0].frame.kind, HartFrameKind::Request);
  EXPECT_EQ(found[1].frame.kind, HartFrameKind::Answer);
}

TEST(HartParser, EndsAFrameByItsLengthAndIgnoresTrailingBytes) {
  HartParser parser;
  parser.feed(joined({afterPreambles(busy), bytesOf("00 00")}));
  EXPECT_THAT(receptions(parser), SizeIs(1));
  EXPECT_FALSE(parser.isFrameOpen());
}

TEST(HartParser, ReportsAWrongCheckByteWithTheFrameAsReceived) {
  const auto found = receptionsOf(afterPreambles(damaged(busy)));
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].damage, HartDamage::CheckByte);
  EXPECT_EQ(found[0].frame.address, exampleAddress());
  EXPECT_EQ(found[0].frame.command, 20);
}

TEST(HartParser, ReportsAnAnswerThatIsTooShortForItsStatus) {
  for (const char* frame : {"86 A1 23 0A 0B 0C 14 00 1D", "86 A1 23 0A 0B 0C 14 01 00 1C",
                            "81 A1 23 0A 0B 0C 14 00 1A"}) {
    const auto found = receptionsOf(afterPreambles(bytesOf(frame)));
    ASSERT_THAT(found, SizeIs(1)) << frame;
    EXPECT_EQ(found[0].damage, HartDamage::ByteCount) << frame;
  }
}

TEST(HartParser, WaitsForAnOpenFrameUntilSilence) {
  HartParser parser;
  parser.feed(afterPreambles(HartBytes(busy.begin(), busy.end() - 1)));
  EXPECT_THAT(receptions(parser), IsEmpty());
  EXPECT_TRUE(parser.isFrameOpen());
  parser.silence();
  EXPECT_THAT(damagesIn(receptions(parser)), ::testing::ElementsAre(HartDamage::BrokenOff));
  EXPECT_FALSE(parser.isFrameOpen());
}

TEST(HartParser, IgnoresSilenceWithoutAnOpenFrame) {
  HartParser parser;
  parser.feed(bytesOf("00 FF FF"));
  parser.silence();
  EXPECT_THAT(receptions(parser), IsEmpty());
  parser.feed(busy);
  EXPECT_THAT(receptions(parser), SizeIs(1));
}

TEST(HartParser, FindsAFrameAfterNoiseThatLookedLikeOne) {
  HartParser parser;
  parser.feed(joined({bytesOf("FF FF 86 A1 23 0A 0B 0C 14 FF"), afterPreambles(busy)}));
  EXPECT_THAT(receptions(parser), IsEmpty());
  parser.silence();
  EXPECT_THAT(damagesIn(receptions(parser)),
              ::testing::ElementsAre(HartDamage::BrokenOff, HartDamage::None));
}

TEST(HartParser, FindsAFrameInsideADamagedOne) {
  const HartBytes begun = bytesOf("FF FF 02 80 00 09");
  const auto found = receptionsOf(joined({begun, afterPreambles(busy)}));
  EXPECT_THAT(damagesIn(found), ::testing::ElementsAre(HartDamage::CheckByte, HartDamage::None));
}

TEST(HartParser, ForgetsEverythingOnReset) {
  HartParser parser;
  parser.feed(bytesOf("FF FF 86 A1"));
  parser.reset();
  EXPECT_FALSE(parser.isFrameOpen());
  parser.feed(busy);
  EXPECT_THAT(receptions(parser), IsEmpty());
}

TEST(HartParser, NeverFailsOnRandomBytesAndFindsTheFrameAfterThem) {
  // One check byte in 256 is right by chance: noise may then swallow the frame.
  constexpr int maxSwallowed = 30;
  int swallowed = 0;
  std::mt19937 random(1200);
  for (int round = 0; round < 3000; ++round) {
    HartParser parser;
    HartBytes noise(random() % 400);
    // Half of the bytes are those that frames begin with.
    for (std::uint8_t& byte : noise) {
      constexpr std::array<std::uint8_t, 4> likely{0xFF, 0xFF, 0x86, 0x02};
      byte = random() % 2 == 0 ? likely.at(random() % likely.size())
                               : static_cast<std::uint8_t>(random());
    }
    const HartBytes bytes = joined({noise, bytesOf("00"), afterPreambles(busy)});
    std::vector<HartReception> found;
    for (std::size_t place = 0; place < bytes.size();) {
      const std::size_t count = std::min<std::size_t>(1 + random() % 50, bytes.size() - place);
      parser.feed(std::span(bytes).subspan(place, count));
      place += count;
      for (HartReception& one : receptions(parser)) found.push_back(std::move(one));
    }
    parser.silence();
    for (HartReception& one : receptions(parser)) found.push_back(std::move(one));
    EXPECT_FALSE(parser.isFrameOpen());
    const auto isTheFrame = [](const HartReception& one) {
      return one.damage == HartDamage::None && encodeHart(one.frame) == busy;
    };
    if (std::ranges::count_if(found, isTheFrame) != 1) ++swallowed;
  }
  EXPECT_LE(swallowed, maxSwallowed);
}

TEST(HartParser, AcceptsNoFrameWithOneWrongBit) {
  const HartBytes sound = afterPreambles(busy);
  for (std::size_t place = 5; place < sound.size(); ++place) {
    for (unsigned int bit = 0; bit < 8; ++bit) {
      HartBytes bytes = sound;
      bytes[place] = static_cast<std::uint8_t>(bytes[place] ^ (1U << bit));
      HartParser parser;
      parser.feed(bytes);
      parser.silence();
      for (const HartReception& one : receptions(parser)) {
        EXPECT_NE(one.damage, HartDamage::None) << place << "." << bit;
      }
    }
  }
}

}  // namespace
}  // namespace tessara::testing
