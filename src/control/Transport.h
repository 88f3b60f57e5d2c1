#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessara {

/// The port number that stands for the USB NFC reader.
inline constexpr std::int16_t usbReaderPort = 999;
/// The line of the port list that stands for the USB NFC reader; compared exactly.
inline constexpr std::u16string_view usbReaderLine = u"NFC-USB-ZORVEN-ADAPTER";
/// The words in a line of the port list that tell the kind of adapter; letter case is ignored.
inline constexpr std::u16string_view twn4Word = u"TWN4 NFC-Adapter";
inline constexpr std::u16string_view hartWord = u"Hart";

/// The revision of the USB reader's processor from its reply: the three bytes behind result code
/// and length, in decimal, joined by points. Two characters that are no hexadecimal number count 0.
std::u16string McuRevisionText(const std::u16string& reply);

}  // namespace tessara
