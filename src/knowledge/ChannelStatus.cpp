#include "knowledge/ChannelStatus.h"

#include <array>

#include "base/Text.h"
#include "knowledge/StatusBits.h"

namespace tessara {
namespace {

constexpr std::int16_t channelGood = 0x0080;

/// The bits of the second channel are in an order of their own.
constexpr std::array<StatusBit, 14> inputBits{{
    {0x0004, 20},
    {0x0008, 21},
    {0x0002, 22},
    {0x0001, 23},
    {0x0010, 24},
    {0x0020, {}, u"Safety Off"},
    {0x0040, 33},
    {0x0100, 20, u" Chn2"},
    {0x0200, 21, u" Chn2"},
    {0x0400, 24, u" Chn2"},
    {0x0800, 23, u" Chn2"},
    {0x1000, 22, u" Chn2"},
    {0x2000, 20, u" Chn-diff."},
    {0x4000, 21, u" Chn-diff."},
}};

/// Families whose bit 0x0040 means a limited output instead of a DIP switch.
constexpr std::array<std::int16_t, 2> limitingFamilies{16, 18};

constexpr std::array<StatusBit, 6> outputBits{{
    {0x0001, 10},
    {0x0002, 26},
    {0x0010, 27},
    {0x0020, 28},
    {0x0040, 33, {}, limitingFamilies},
    {0x0040, 29},
}};

}  // namespace

std::u16string DecodeChannelStatus(std::int16_t inStatus, std::int16_t outStatus, bool bNFCReader,
                                   std::int16_t FamilyID, const TextTables& texts) {
  if (bNFCReader) {
    return u"NFC";
  }
  if (inStatus == channelGood && outStatus == channelGood) {
    return hexText(channelGood) + u" -> " + texts.TextStatus[noErrorText];
  }
  std::u16string line;
  if (inStatus != channelGood) {
    line += hexText(inStatus) + u" ->";
    appendStatusTexts(line, inStatus, FamilyID, inputBits, {u" ", u"!"}, texts);
  }
  if (outStatus != channelGood) {
    line += line.empty() ? u"" : u" ";
    line += hexText(outStatus);
    appendStatusTexts(line, outStatus, FamilyID, outputBits, {u" -> ", u"!"}, texts);
  }
  return line;
}

}  // namespace tessara
