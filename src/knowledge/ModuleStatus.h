#pragma once

#include <cstdint>
#include <string>

#include "localisation/TextTables.h"

namespace tessara {

/// The line of text for a module's device status word: the word in hexadecimal, followed by the
/// texts of its bits; for a word of zero by "no error". What some bits mean depends on `FamilyID`.
/// Over an NFC reader the state is not known; the line then is "NFC".
std::u16string DecodeModuleStatusBits(std::int16_t statusWord, bool bNFCReader,
                                      std::int16_t FamilyID, const TextTables& texts);

/// The line of text for the device error word, which tells of faults in the module's measuring
/// system. The words 0, 0x0069 and 0xFF69 mean that the measuring system did not answer.
std::u16string DecodeModuleErrorBits(std::int16_t errorWord, const TextTables& texts);

/// True if the LED status word says that the module is powered over USB (bit 0x1000).
constexpr bool isUsbPowered(std::int32_t ledWord) {
  return (ledWord & 0x1000) != 0;
}

/// The module status line with the note on USB power in front of it; the same in all languages.
inline std::u16string withUsbPower(const std::u16string& line) {
  return u"USB-Power; " + line;
}

}  // namespace tessara
