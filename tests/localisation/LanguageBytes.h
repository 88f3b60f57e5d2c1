#pragma once

#include <string>
#include <string_view>

namespace tessara::testing {

/// `text` as UTF-16 little-endian bytes, without a byte order mark.
inline std::string utf16Bytes(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) {
    bytes += static_cast<char>(unit & 0xFFU);
    bytes += static_cast<char>(unit >> 8U);
  }
  return bytes;
}

/// A language file with `text` after its byte order mark.
inline std::string languageBytes(std::u16string_view text) {
  return "\xFF\xFE" + utf16Bytes(text);
}

}  // namespace tessara::testing
