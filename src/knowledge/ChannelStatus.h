#pragma once

#include <cstdint>
#include <string>

#include "localisation/TextTables.h"

namespace tessara {

/// The line of text for the two channel status words of a module: each word in hexadecimal,
/// followed by the texts of its bits. The word 0x0080 is a channel without a
/// fault; it is left out if the other channel has one. An NFC reader does not report the channels;
/// the line is then "NFC".
///
/// The meaning of bit 0x0040 of the output word depends on `FamilyID`.
std::u16string DecodeChannelStatus(std::int16_t inStatus, std::int16_t outStatus, bool bNFCReader,
                                   std::int16_t FamilyID, const TextTables& texts);

}  // namespace tessara
