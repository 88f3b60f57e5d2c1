#include "knowledge/ModuleStatus.h"

#include <algorithm>
#include <array>

#include "base/Text.h"
#include "knowledge/StatusBits.h"

namespace tessara {
namespace {

constexpr std::size_t communicationErrorText = 1;
constexpr std::size_t measuringSystemText = 18;

constexpr std::array<std::int16_t, 2> setA{15, 16};
constexpr std::array<std::int16_t, 2> setB{25, 26};
constexpr std::array<std::int16_t, 4> setC{15, 16, 18, 22};

constexpr std::array<StatusBit, 21> statusBits{{
    {0x0001, {}, u"Simulation LED-RED", setA},
    {0x0001, 15},
    {0x0004, 2},
    {0x0008, 17},
    {0x0010, 4},
    {0x0020, 5},
    {0x0040, 6},
    {0x0080, 7},
    {0x0100, 8},
    {0x0200, 9},
    {0x0400, 25, {}, setA},
    {0x0400, 34, {}, setB},
    {0x0400, 10},
    {0x0800, 19},
    {0x1000, 30, {}, setC},
    {0x1000, 11},
    {0x2000, 31, {}, setC},
    {0x2000, 12},
    {0x4000, 32, {}, setC},
    {0x4000, 13},
    {0x8000, 14},
}};

/// The same for all families; two bits report the converter.
constexpr std::array<StatusBit, 14> errorBits{{
    {0x0001, 15},
    {0x0004, 2},
    {0x0010, 4},
    {0x0020, 5},
    {0x0040, 6},
    {0x0080, 7},
    {0x0100, 8},
    {0x0200, 9},
    {0x0400, 17},
    {0x0800, 19},
    {0x1000, 11},
    {0x2000, 12},
    {0x4000, 16},
    {0x8000, 17},
}};

/// Error words of a module whose measuring system did not answer; -151 is 0xFF69.
constexpr std::array<std::int16_t, 3> noAnswerWords{0, 0x0069, -151};

}  // namespace

std::u16string DecodeModuleStatusBits(std::int16_t statusWord, bool bNFCReader,
                                      std::int16_t FamilyID, const TextTables& texts) {
  if (bNFCReader) {
    return u"NFC";
  }
  std::u16string line = hexText(statusWord);
  appendStatusTexts(line, statusWord, FamilyID, statusBits, {u" -> ", {}}, texts);
  if (statusWord == 0) {
    line += u" -> " + texts.TextStatus[noErrorText];
  }
  return line;
}

std::u16string DecodeModuleErrorBits(std::int16_t errorWord, const TextTables& texts) {
  const std::u16string measuringSystem = u" " + texts.TextStatus[measuringSystemText];
  if (std::find(noAnswerWords.begin(), noAnswerWords.end(), errorWord) != noAnswerWords.end()) {
    return texts.TextStatus[communicationErrorText] + measuringSystem;
  }
  constexpr std::int16_t anyFamily = 0;
  std::u16string line = hexText(errorWord);
  appendStatusTexts(line, errorWord, anyFamily, errorBits, {u" -> ", measuringSystem}, texts);
  return line;
}

}  // namespace tessara
