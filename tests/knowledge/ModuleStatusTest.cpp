#include <vector>

#include <gtest/gtest.h>

#include "base/Text.h"
#include "knowledge/ModuleStatus.h"

namespace tessara {
namespace {

constexpr std::int16_t otherFamily = 20;

using Words = std::vector<std::int16_t>;
using Patterns = std::vector<std::uint16_t>;

class ModuleStatus : public ::testing::Test {
 protected:
  ModuleStatus() { LoadDefaultTexts(texts); }

  std::string status(std::uint16_t bits, std::int16_t family = otherFamily) {
    return toUtf8(DecodeModuleStatusBits(static_cast<std::int16_t>(bits), false, family, texts));
  }
  std::string error(std::uint16_t bits) {
    return toUtf8(DecodeModuleErrorBits(static_cast<std::int16_t>(bits), texts));
  }

  TextTables texts;
};

TEST_F(ModuleStatus, IsNfcOverAReader) {
  EXPECT_EQ(DecodeModuleStatusBits(0, true, otherFamily, texts), u"NFC");
  EXPECT_EQ(DecodeModuleStatusBits(-1, true, otherFamily, texts), u"NFC");
}

TEST_F(ModuleStatus, OfZeroIsNoErrorInEveryFamily) {
  for (const std::int16_t family : Words{15, 16, 18, 20, 22, 25, 26}) {
    EXPECT_EQ(status(0, family), "0 -> Kein Fehler");
  }
}

TEST_F(ModuleStatus, WritesAnArrowBeforeEachTextAndNoExclamationMark) {
  EXPECT_EQ(status(0x1004, 22), "1004 -> Simulation -> Fehler Konfiguration Dip-Schalter");
}

TEST_F(ModuleStatus, PrintsTheErrorWordsBitAsABareNumber) {
  EXPECT_EQ(status(0x0002), "2");
}

TEST_F(ModuleStatus, ListsAllBitsInTheirOrderWhateverTheSign) {
  EXPECT_EQ(status(0xFFFF),
            "FFFF -> Fehler Versorgungsspg. -> Simulation -> Fehler ADC -> Fehler RAM "
            "-> Fehler Register -> Fehler Flash Checksumme -> Fehler Parameter Checksumme "
            "-> Fehler Eeprom Checksumme -> Stacküberlauf -> Drahtbruch Ausgang "
            "-> Fehler Watchdog -> Fehler Konfiguration -> Fehler Werte Check "
            "-> Fehler Referenz Spg. -> Fehler Ausgangswert");
  EXPECT_EQ(status(0xFFFF, 16),
            "FFFF -> Simulation LED-RED -> Simulation -> Fehler ADC -> Fehler RAM "
            "-> Fehler Register -> Fehler Flash Checksumme -> Fehler Parameter Checksumme "
            "-> Fehler Eeprom Checksumme -> Stacküberlauf -> Fehler Kaltstelle "
            "-> Fehler Watchdog -> Fehler Konfiguration Dip-Schalter "
            "-> Fehler Konfiguration SW -> DIP-Konfiguration aktiv -> Fehler Ausgangswert");
}

TEST_F(ModuleStatus, KeepsTheConnectorOfAnEmptyEntry) {
  texts.TextStatus[2].clear();
  EXPECT_EQ(status(0x0014), "14 ->  -> Fehler RAM");
  texts.TextStatus[0] = u"fine";
  EXPECT_EQ(status(0), "0 -> fine");
}

struct StatusBitCase {
  std::uint16_t bit;
  const char* line;
};

class StatusBitOfAllFamilies : public ModuleStatus,
                               public ::testing::WithParamInterface<StatusBitCase> {};

TEST_P(StatusBitOfAllFamilies, HasItsText) {
  for (const std::int16_t family : Words{15, 16, 18, 20, 22, 25, 26}) {
    EXPECT_EQ(status(GetParam().bit, family), GetParam().line);
  }
}

INSTANTIATE_TEST_SUITE_P(Table, StatusBitOfAllFamilies,
                         ::testing::Values(StatusBitCase{0x0004, "4 -> Simulation"},
                                           StatusBitCase{0x0008, "8 -> Fehler ADC"},
                                           StatusBitCase{0x0010, "10 -> Fehler RAM"},
                                           StatusBitCase{0x0020, "20 -> Fehler Register"},
                                           StatusBitCase{0x0040, "40 -> Fehler Flash Checksumme"},
                                           StatusBitCase{0x0080,
                                                         "80 -> Fehler Parameter Checksumme"},
                                           StatusBitCase{0x0100, "100 -> Fehler Eeprom Checksumme"},
                                           StatusBitCase{0x0200, "200 -> Stacküberlauf"},
                                           StatusBitCase{0x0800, "800 -> Fehler Watchdog"},
                                           StatusBitCase{0x8000, "8000 -> Fehler Ausgangswert"}));

struct FamilyBit {
  std::uint16_t bit;
  Words families;
  const char* line;
};

class StatusBitOfSomeFamilies : public ModuleStatus,
                                public ::testing::WithParamInterface<FamilyBit> {};

TEST_P(StatusBitOfSomeFamilies, HasItsText) {
  for (const std::int16_t family : GetParam().families) {
    EXPECT_EQ(status(GetParam().bit, family), GetParam().line) << "family " << family;
  }
}

const Words setA{15, 16};
const Words otherThanA{0, 14, 17, 18, 20, 22, 25, 26, 27, -15};
const Words setB{25, 26};
const Words neitherAnorB{0, 14, 17, 18, 20, 22, 24, 27, -25};
const Words setC{15, 16, 18, 22};
const Words otherThanC{0, 14, 17, 19, 20, 21, 23, 25, 26, -22};

INSTANTIATE_TEST_SUITE_P(
    Table, StatusBitOfSomeFamilies,
    ::testing::Values(FamilyBit{0x0001, setA, "1 -> Simulation LED-RED"},
                      FamilyBit{0x0001, otherThanA, "1 -> Fehler Versorgungsspg."},
                      FamilyBit{0x0400, setA, "400 -> Fehler Kaltstelle"},
                      FamilyBit{0x0400, setB, "400 -> Fehler Monitoring System"},
                      FamilyBit{0x0400, neitherAnorB, "400 -> Drahtbruch Ausgang"},
                      FamilyBit{0x1000, setC, "1000 -> Fehler Konfiguration Dip-Schalter"},
                      FamilyBit{0x1000, otherThanC, "1000 -> Fehler Konfiguration"},
                      FamilyBit{0x2000, setC, "2000 -> Fehler Konfiguration SW"},
                      FamilyBit{0x2000, otherThanC, "2000 -> Fehler Werte Check"},
                      FamilyBit{0x4000, setC, "4000 -> DIP-Konfiguration aktiv"},
                      FamilyBit{0x4000, otherThanC, "4000 -> Fehler Referenz Spg."}));

TEST_F(ModuleStatus, UnansweredMeasuringSystemHasItsOwnMessage) {
  for (const std::uint16_t bits : Patterns{0x0000, 0x0069, 0xFF69}) {
    EXPECT_EQ(error(bits), "Fehler Kommunikation Mess-System");
  }
}

TEST_F(ModuleStatus, ErrorTextsEachNameTheMeasuringSystem) {
  EXPECT_EQ(error(0x0011), "11 -> Fehler Versorgungsspg. Mess-System -> Fehler RAM Mess-System");
}

TEST_F(ModuleStatus, ErrorWordsNextToNoAnswerAreDecoded) {
  EXPECT_EQ(error(0x0068),
            "68 -> Fehler Register Mess-System -> Fehler Flash Checksumme Mess-System");
  EXPECT_EQ(error(0x0169),
            "169 -> Fehler Versorgungsspg. Mess-System -> Fehler Register Mess-System "
            "-> Fehler Flash Checksumme Mess-System -> Fehler Eeprom Checksumme Mess-System");
}

TEST_F(ModuleStatus, ErrorWordListsAllBitsInTheirOrderAndTheConverterTwice) {
  EXPECT_EQ(error(0xFFFF),
            "FFFF -> Fehler Versorgungsspg. Mess-System -> Simulation Mess-System "
            "-> Fehler RAM Mess-System -> Fehler Register Mess-System "
            "-> Fehler Flash Checksumme Mess-System -> Fehler Parameter Checksumme Mess-System "
            "-> Fehler Eeprom Checksumme Mess-System -> Stacküberlauf Mess-System "
            "-> Fehler ADC Mess-System -> Fehler Watchdog Mess-System "
            "-> Fehler Konfiguration Mess-System -> Fehler Werte Check Mess-System "
            "-> Fehler Sensorstrom Mess-System -> Fehler ADC Mess-System");
}

TEST_F(ModuleStatus, ErrorTextsComeFromTheTable) {
  texts.TextStatus[1] = u"no answer of the";
  texts.TextStatus[18] = u"front end";
  texts.TextStatus[4].clear();
  EXPECT_EQ(error(0), "no answer of the front end");
  EXPECT_EQ(error(0x0010), "10 ->  front end");
}

class ErrorBit : public ModuleStatus, public ::testing::WithParamInterface<StatusBitCase> {};

TEST_P(ErrorBit, HasItsText) {
  EXPECT_EQ(error(GetParam().bit), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    Table, ErrorBit,
    ::testing::Values(StatusBitCase{0x0001, "1 -> Fehler Versorgungsspg. Mess-System"},
                      StatusBitCase{0x0002, "2"},
                      StatusBitCase{0x0004, "4 -> Simulation Mess-System"},
                      StatusBitCase{0x0008, "8"},
                      StatusBitCase{0x0010, "10 -> Fehler RAM Mess-System"},
                      StatusBitCase{0x0020, "20 -> Fehler Register Mess-System"},
                      StatusBitCase{0x0040, "40 -> Fehler Flash Checksumme Mess-System"},
                      StatusBitCase{0x0080, "80 -> Fehler Parameter Checksumme Mess-System"},
                      StatusBitCase{0x0100, "100 -> Fehler Eeprom Checksumme Mess-System"},
                      StatusBitCase{0x0200, "200 -> Stacküberlauf Mess-System"},
                      StatusBitCase{0x0400, "400 -> Fehler ADC Mess-System"},
                      StatusBitCase{0x0800, "800 -> Fehler Watchdog Mess-System"},
                      StatusBitCase{0x1000, "1000 -> Fehler Konfiguration Mess-System"},
                      StatusBitCase{0x2000, "2000 -> Fehler Werte Check Mess-System"},
                      StatusBitCase{0x4000, "4000 -> Fehler Sensorstrom Mess-System"},
                      StatusBitCase{0x8000, "8000 -> Fehler ADC Mess-System"}));

}  // namespace
}  // namespace tessara
