#pragma once

#include <cstdint>
#include <string_view>

namespace tessara {

/// The port number that stands for the USB NFC reader.
inline constexpr std::int16_t usbReaderPort = 999;
/// The line of the port list that stands for the USB NFC reader; compared exactly.
inline constexpr std::u16string_view usbReaderLine = u"NFC-USB-ZORVEN-ADAPTER";
/// The words in a line of the port list that identify the adapter type; letter case is ignored.
inline constexpr std::u16string_view twn4Word = u"TWN4 NFC-Adapter";
inline constexpr std::u16string_view hartWord = u"Hart";

}  // namespace tessara
