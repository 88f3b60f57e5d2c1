#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "localisation/TextTables.h"

namespace tessara {

/// The line of text for a module's device status word: the word in hexadecimal, followed by the
/// texts of its bits; for a word of zero by "no error". The meaning of some bits depends on
/// `FamilyID`. An NFC reader does not report the state; the line is then "NFC".
std::u16string DecodeModuleStatusBits(std::int16_t statusWord, bool bNFCReader,
                                      std::int16_t FamilyID, const TextTables& texts);

/// The line of text for the device error word, which reports faults of the module's measuring
/// system. The words 0, 0x0069 and 0xFF69 mean that the measuring system did not answer.
std::u16string DecodeModuleErrorBits(std::int16_t errorWord, const TextTables& texts);

/// LED status word: the module is powered over USB. The text for it precedes the module status line
/// and is the same in all languages.
inline constexpr std::int32_t usbPowered = 0x1000;
inline constexpr std::u16string_view usbPowerText = u"USB-Power; ";

/// Pictures of ImageList1: a module without fault, and any other state.
inline constexpr std::int32_t pictureGood = 1;
inline constexpr std::int32_t pictureOther = 2;

}  // namespace tessara
