#pragma once

#include <cstdint>
#include <string>

#include "localisation/TextTables.h"

namespace tessara {

/// The line of text for the two channel status words of a module: each word in hexadecimal,
/// followed by the texts of its bits. A word of 0x0080 is a channel in good order and is left out
/// beside one that is not. Over an NFC reader the channels are not known; the line then is "NFC".
///
/// `FamilyID` decides what bit 0x0040 of the output word means.
std::u16string DecodeChannelStatus(std::int16_t inStatus, std::int16_t outStatus, bool bNFCReader,
                                   std::int16_t FamilyID, const TextTables& texts);

}  // namespace tessara
