#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessara {

/// Text inside the system is UTF-16: lengths, files and hosts all count its code units. Where UTF-8
/// comes in or goes out, these two functions convert it. Malformed input becomes U+FFFD, never an
/// error.
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

/// Letter case counts for the letters A to Z alone, whatever the language of the system: these turn
/// a to z into A to Z and leave every other character as it is.
std::string upperCase(std::string_view text);
std::u16string upperCase(std::u16string_view text);

/// True if the texts differ in nothing but the case of letters.
bool equalIgnoringCase(std::string_view left, std::string_view right);
bool equalIgnoringCase(std::u16string_view left, std::u16string_view right);

/// True if `part` is found anywhere in `text`, in whatever letter case.
bool containsIgnoringCase(std::u16string_view text, std::u16string_view part);

}  // namespace tessara
