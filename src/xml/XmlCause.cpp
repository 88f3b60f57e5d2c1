#include "xml/XmlCause.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/Text.h"

namespace tessara {
namespace {

/// The text before and at the place of the fault, and its meaning. The first matching row applies.
struct TokenCause {
  std::string_view before;
  std::string_view here;
  const char* cause;
};

constexpr std::array<TokenCause, 4> tokenCauses{{
    {"]]", ">", "']]>' in text; write ']]&gt;'"},
    {"--", "", "'--' inside a comment"},
    {"", "<", "'<' inside a tag or a value; in values write '&lt;'"},
    {"", "&", "'&' inside a tag"},
}};

/// True if `text` ends with an '&' and the start of a name or number.
bool endsInReference(std::string_view text) {
  constexpr std::string_view delimiters = " \t\r\n;<>'\"=/&";
  const auto last = text.find_last_of(delimiters);
  return last != std::string_view::npos && text[last] == '&';
}

bool isUtf8(std::string_view character) {
  return toUtf8(fromUtf8(character)) == character;
}

/// The bytes of the character at the beginning of `text`.
std::string_view firstCharacter(std::string_view text) {
  const auto isTail = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
  const auto end = std::find_if_not(text.begin() + 1, text.end(), isTail);
  return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

std::string inHex(const char* format, char byte) {
  std::array<char, 64> buffer{};
  std::snprintf(buffer.data(), buffer.size(), format,
                static_cast<unsigned int>(static_cast<unsigned char>(byte)));
  return buffer.data();
}

std::string characterCause(std::string_view character) {
  const char first = character.front();
  if (std::string_view(" \t\r\n").find(first) != std::string_view::npos) {
    return "unexpected white space";
  }
  if (static_cast<unsigned char>(first) < 0x20) {
    return inHex("control character U+%04X", first);
  }
  if (!isUtf8(character)) {
    return inHex("byte 0x%02X is not valid UTF-8", first);
  }
  return "unexpected '" + std::string(character) + "'";
}

}  // namespace

std::string invalidTokenCause(std::string_view text, std::size_t index) {
  if (index >= text.size()) {
    return "unexpected end";
  }
  const std::string_view before = text.substr(0, index);
  const std::string_view here = text.substr(index);
  if (endsInReference(before)) {
    return "'&' is not the start of a reference; write '&amp;'";
  }
  const auto* row = std::find_if(tokenCauses.begin(), tokenCauses.end(), [&](const auto& known) {
    return before.ends_with(known.before) && here.starts_with(known.here);
  });
  return row == tokenCauses.end() ? characterCause(firstCharacter(here)) : row->cause;
}

}  // namespace tessara
