#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/BitFieldHelper.h"
#include "platform/CommunicationObject.h"

namespace tessara {

/// Registers that all modules have at the same address.
namespace registers {
inline constexpr std::int32_t secondVersion = 3;
inline constexpr std::int32_t firmwareVersion = 4;
inline constexpr std::int32_t serialNumber = 5;
inline constexpr std::int32_t deviceName = 16;
inline constexpr std::int32_t hartDeviceName = 20;
inline constexpr std::int32_t hartFirmwareVersion = 24;
inline constexpr std::int32_t hartSerialNumber = 27;
inline constexpr std::int16_t serialNumberWords = 4;
inline constexpr std::int16_t deviceNameWords = 16;
}  // namespace registers

/// The address at which modules on the register path report their status.
inline constexpr std::uint8_t statusAddress = 192;
/// Device status: the error register holds an error word.
inline constexpr std::int16_t errorWordWaits = 0x0002;

/// Element `index` of a module's reply. A missing element is a subscript error (9).
std::int32_t elementOf(const DeviceWords& words, std::size_t index);

/// The same for a 16-bit field: an element outside -32768 to 32767 is an overflow (6).
std::int16_t wordOf(const DeviceWords& words, std::size_t index);

/// A version register: four binary-coded digits, most significant first, read as d.ddd. Digits
/// above 9 are not rejected and add their weight.
double DecodeVersionWord(std::int32_t element, const BitFieldHelper& bits);

/// The firmware version as shown: rounded to 3 decimals, in its shortest form, with a point, and
/// padded by PadVersionText. `separator` is the system's decimal separator.
std::u16string VersionText(float firmwareVers, std::u16string_view separator);

/// Pads a version text by the number of its characters, wherever the point is: 1 character gets
/// ".000", 3 get "00", 4 get "0", any other length stays.
std::u16string PadVersionText(std::u16string text);

/// The serial number from its four words, least significant word first. Elements outside the range
/// of a word that make a number beyond 64 bits are an overflow (6).
std::uint64_t SerialNumberOf(const DeviceWords& words);

/// The device name from its 16 words: the characters of each word's high and low byte, with all
/// padding. The bytes are ISO 8859-1.
std::u16string NameText(const DeviceWords& words);

/// A text of a HART module: the elements after the first two, each a character. An element that is
/// not a character code (0 to 65535) is an invalid call (5).
std::u16string HartText(const DeviceWords& words);

}  // namespace tessara
