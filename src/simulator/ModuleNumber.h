#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "json/JsonReader.h"

namespace tessara {

/// The number that the text gives in decimal, or in hexadecimal behind 0x; nothing if the text is
/// not a number or the number is above `max`.
std::optional<std::uint64_t> unsignedFromText(std::string_view text, std::uint64_t max);

/// A 16-bit word of a module file: a number from -32768 to 65535, or text in hexadecimal, "0x1234".
/// Throws JsonError.
std::uint16_t readWord(const JsonReader& node);

}  // namespace tessara
