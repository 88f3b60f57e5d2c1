#include "simulator/ModuleNumber.h"

#include <charconv>
#include <limits>

namespace tessara {

std::optional<std::uint64_t> unsignedFromText(std::string_view text, std::uint64_t max) {
  constexpr int decimal = 10;
  constexpr int hexadecimal = 16;
  const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (isHexadecimal) text.remove_prefix(2);
  std::uint64_t number = 0;
  const auto* end = text.data() + text.size();
  const auto result =
      std::from_chars(text.data(), end, number, isHexadecimal ? hexadecimal : decimal);
  if (result.ec != std::errc() || result.ptr != end || number > max) return std::nullopt;
  return number;
}

std::uint16_t readWord(const JsonReader& node) {
  constexpr std::int64_t min = std::numeric_limits<std::int16_t>::min();
  constexpr std::uint16_t max = std::numeric_limits<std::uint16_t>::max();
  if (node.isText()) {
    const std::string text = node.text();
    const auto word = text.starts_with("0x") ? unsignedFromText(text, max) : std::nullopt;
    if (word) return static_cast<std::uint16_t>(*word);
  } else if (const auto word = node.wholeNumber(); word && *word >= min && *word <= max) {
    return static_cast<std::uint16_t>(*word);
  }
  node.fail(node.shown() +
            " is not a 16-bit word, a number from -32768 to 65535 or text such as \"0x1234\"");
}

}  // namespace tessara
