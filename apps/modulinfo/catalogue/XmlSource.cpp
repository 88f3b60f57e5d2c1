#include "catalogue/XmlSource.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace tessara {
namespace {

using namespace std::string_view_literals;

/// How a file's first bytes tell its encoding.
struct Opening {
  std::string_view bytes;
  std::size_t bytesOfUnit;
  bool highByteFirst;
  /// A mark in front of the text, rather than the text's own first character.
  bool isMark;
};

/// The longer openings first where a shorter one begins alike.
constexpr std::array<Opening, 9> openings{{
    {"\0\0\xFE\xFF"sv, 4, true, true},
    {"\xFF\xFE\0\0"sv, 4, false, true},
    {"\xFE\xFF"sv, 2, true, true},
    {"\xFF\xFE"sv, 2, false, true},
    {"\xEF\xBB\xBF"sv, 1, false, true},
    {"\0\0\0<"sv, 4, true, false},
    {"<\0\0\0"sv, 4, false, false},
    {"\0<"sv, 2, true, false},
    {"<\0"sv, 2, false, false},
}};

char32_t unitOf(std::string_view bytes, bool highByteFirst) {
  char32_t unit = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char byte = highByteFirst ? bytes[i] : bytes[bytes.size() - 1 - i];
    unit = (unit << 8U) | static_cast<unsigned char>(byte);
  }
  return unit;
}

void append(std::u16string& text, char32_t unit) {
  constexpr char32_t firstPair = 0x10000;
  constexpr char32_t last = 0x10FFFF;
  if (unit > last) {
    text += u'\uFFFD';
  } else if (unit >= firstPair) {
    text += static_cast<char16_t>(0xD800 + ((unit - firstPair) >> 10U));
    text += static_cast<char16_t>(0xDC00 + ((unit - firstPair) & 0x3FFU));
  } else {
    text += static_cast<char16_t>(unit);
  }
}

std::string textOfUnits(std::string_view bytes, std::size_t bytesOfUnit, bool highByteFirst) {
  std::u16string text;
  for (; bytes.size() >= bytesOfUnit; bytes.remove_prefix(bytesOfUnit)) {
    append(text, unitOf(bytes.substr(0, bytesOfUnit), highByteFirst));
  }
  return toUtf8(text);
}

/// True if the XML declaration names an encoding in which each byte is the character of its number.
bool declaresLatin1(std::string_view bytes) {
  const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
  if (!declaration.starts_with("<?xml")) {
    return false;
  }
  const std::u16string text = fromUtf8(declaration);
  return containsIgnoringCase(text, u"\"iso-8859-1\"") ||
         containsIgnoringCase(text, u"'iso-8859-1'") || containsIgnoringCase(text, u"\"latin1\"") ||
         containsIgnoringCase(text, u"'latin1'");
}

std::string textOf(std::string_view bytes) {
  for (const Opening& opening : openings) {
    if (bytes.starts_with(opening.bytes)) {
      if (opening.isMark) {
        bytes.remove_prefix(opening.bytes.size());
      }
      return opening.bytesOfUnit == 1
                 ? std::string(bytes)
                 : textOfUnits(bytes, opening.bytesOfUnit, opening.highByteFirst);
    }
  }
  return declaresLatin1(bytes) ? textOfUnits(bytes, 1, true) : std::string(bytes);
}

}  // namespace

XmlSource::XmlSource(std::string_view bytes) : text_(textOf(bytes)) {
  for (auto end = text_.find('\n'); end != std::string::npos; end = text_.find('\n', end + 1)) {
    lineEnds_.push_back(end);
  }
}

std::size_t XmlSource::lineAt(std::size_t offset) const {
  const auto ended = std::lower_bound(lineEnds_.begin(), lineEnds_.end(), offset);
  return static_cast<std::size_t>(ended - lineEnds_.begin()) + 1;
}

}  // namespace tessara
