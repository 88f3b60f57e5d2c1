#include <vector>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "knowledge/ChannelStatus.h"

namespace tessara {
namespace {

constexpr std::int16_t good = 0x0080;
constexpr std::int16_t anyFamily = 20;

using Words = std::vector<std::int16_t>;
using Patterns = std::vector<std::uint16_t>;

/// A word by its bits; the top bit makes it negative.
std::int16_t word(std::uint16_t bits) {
  return static_cast<std::int16_t>(bits);
}

class ChannelStatus : public ::testing::Test {
 protected:
  ChannelStatus() { LoadDefaultTexts(texts); }

  std::string line(std::uint16_t in, std::uint16_t out, std::int16_t family = anyFamily) {
    return toUtf8(DecodeChannelStatus(word(in), word(out), false, family, texts));
  }

  TextTables texts;
};

TEST_F(ChannelStatus, IsNfcOverAReaderWhateverTheWordsSay) {
  for (const std::uint16_t bits : Patterns{0x0080, 0x0000, 0x7F7F, 0xFFFF}) {
    EXPECT_EQ(DecodeChannelStatus(word(bits), word(bits), true, anyFamily, texts), u"NFC");
  }
}

TEST_F(ChannelStatus, ReportsTwoGoodWordsAsNoErrorWithoutExclamationMark) {
  EXPECT_EQ(line(good, good), "80 -> Kein Fehler");
}

TEST_F(ChannelStatus, OmitsAGoodWordBesideAFault) {
  EXPECT_EQ(line(0x0004, good), "4 -> Bereichsüberschreitung!");
  EXPECT_EQ(line(good, 0x0003), "3 -> Drahtbruch Ausgang! -> Fehler Bürde!");
  EXPECT_EQ(line(good, 0x0000), "0");
}

TEST_F(ChannelStatus, WritesTheInputsArrowOnceAndTheOutputsBeforeEachMessage) {
  EXPECT_EQ(line(0x0104, good), "104 -> Bereichsüberschreitung! Bereichsüberschreitung Chn2!");
  EXPECT_EQ(line(0x0001, 0x0002), "1 -> Drahtbruch Sensor! 2 -> Fehler Bürde!");
  EXPECT_EQ(line(0x0000, 0x0000), "0 -> 0");
}

TEST_F(ChannelStatus, PrintsUnknownBitsAsABareNumber) {
  EXPECT_EQ(line(0x8000, good), "8000 ->");
  EXPECT_EQ(line(good, 0xFF8C), "FF8C");
}

TEST_F(ChannelStatus, PrintsAndDecodesTheGoodBitBesideOthers) {
  EXPECT_EQ(line(0x0081, good), "81 -> Drahtbruch Sensor!");
  EXPECT_EQ(line(good, 0x0082), "82 -> Fehler Bürde!");
}

TEST_F(ChannelStatus, ListsAllBitsInTheirOrder) {
  EXPECT_EQ(line(0xFFFF, 0xFFFF),
            "FFFF -> Bereichsüberschreitung! Bereichsunterschreitung! Kurzschluss! "
            "Drahtbruch Sensor! Ungültige Messung! Safety Off! Begrenzend! "
            "Bereichsüberschreitung Chn2! Bereichsunterschreitung Chn2! Ungültige Messung Chn2! "
            "Drahtbruch Sensor Chn2! Kurzschluss Chn2! Bereichsüberschreitung Chn-diff.! "
            "Bereichsunterschreitung Chn-diff.! "
            "FFFF -> Drahtbruch Ausgang! -> Fehler Bürde! -> Interne Temperatur zu hoch! "
            "-> Interne Temperatur zu niedrig! -> Fehler Dip - Schalter!");
}

TEST_F(ChannelStatus, TakesTheTextsFromTheTableExceptForTheFixedParts) {
  texts.TextStatus[20] = u"over range";
  texts.TextStatus[23].clear();
  EXPECT_EQ(line(0x0100, good), "100 -> over range Chn2!");
  EXPECT_EQ(line(0x0021, good), "21 -> ! Safety Off!");
  texts.TextStatus[0] = u"fine";
  EXPECT_EQ(line(good, good), "80 -> fine");
}

struct Bit {
  std::uint16_t bit;
  const char* line;
};

class InputBit : public ChannelStatus, public ::testing::WithParamInterface<Bit> {};
class OutputBit : public ChannelStatus, public ::testing::WithParamInterface<Bit> {};

TEST_P(InputBit, HasItsText) {
  EXPECT_EQ(line(GetParam().bit, good), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    Table, InputBit,
    ::testing::Values(
        Bit{0x0004, "4 -> Bereichsüberschreitung!"}, Bit{0x0008, "8 -> Bereichsunterschreitung!"},
        Bit{0x0002, "2 -> Kurzschluss!"}, Bit{0x0001, "1 -> Drahtbruch Sensor!"},
        Bit{0x0010, "10 -> Ungültige Messung!"}, Bit{0x0020, "20 -> Safety Off!"},
        Bit{0x0040, "40 -> Begrenzend!"}, Bit{0x0100, "100 -> Bereichsüberschreitung Chn2!"},
        Bit{0x0200, "200 -> Bereichsunterschreitung Chn2!"},
        Bit{0x0400, "400 -> Ungültige Messung Chn2!"},
        Bit{0x0800, "800 -> Drahtbruch Sensor Chn2!"}, Bit{0x1000, "1000 -> Kurzschluss Chn2!"},
        Bit{0x2000, "2000 -> Bereichsüberschreitung Chn-diff.!"},
        Bit{0x4000, "4000 -> Bereichsunterschreitung Chn-diff.!"}));

TEST_P(OutputBit, HasItsText) {
  EXPECT_EQ(line(good, GetParam().bit), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(Table, OutputBit,
                         ::testing::Values(Bit{0x0001, "1 -> Drahtbruch Ausgang!"},
                                           Bit{0x0002, "2 -> Fehler Bürde!"},
                                           Bit{0x0010, "10 -> Interne Temperatur zu hoch!"},
                                           Bit{0x0020, "20 -> Interne Temperatur zu niedrig!"},
                                           Bit{0x0040, "40 -> Fehler Dip - Schalter!"}));

TEST_F(ChannelStatus, OutputLimitIsReportedForFamilies16And18Only) {
  for (const std::int16_t family : Words{16, 18}) {
    EXPECT_EQ(line(good, 0x0040, family), "40 -> Begrenzend!");
  }
  for (const std::int16_t family : Words{0, 15, 17, 19, 22, 25, 26, -16}) {
    EXPECT_EQ(line(good, 0x0040, family), "40 -> Fehler Dip - Schalter!");
  }
}

TEST_F(ChannelStatus, InputLimitDoesNotDependOnTheFamily) {
  for (const std::int16_t family : Words{15, 16, 18, 20}) {
    EXPECT_EQ(line(0x0040, good, family), "40 -> Begrenzend!");
  }
}

}  // namespace
}  // namespace tessara
