#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessara {

/// Text inside the system is UTF-16: lengths, files and hosts all count its code units.
/// UTF-8 exists only at the edges; these two functions are the edge.
/// Malformed input gives U+FFFD in its place, never an error.
std::u16string fromUtf8(std::string_view text);
std::string toUtf8(std::u16string_view text);

/// A whole number in decimal, without separators.
std::u16string decimalText(std::int64_t number);
std::u16string decimalText(std::uint64_t number);
inline std::u16string decimalText(std::int32_t number) {
  return decimalText(static_cast<std::int64_t>(number));
}

/// The 16-bit pattern of a device word in upper-case hexadecimal without leading zeros:
/// 128 gives 80, 0 gives 0, -1 gives FFFF.
std::u16string hexText(std::int16_t word);

/// True if `part` stands anywhere in `text`, letter case ignored for the letters A to Z.
bool containsIgnoringCase(std::u16string_view text, std::u16string_view part);

}  // namespace tessara
