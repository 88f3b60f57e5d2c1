#pragma once

#include <cstdint>
#include <string>

#include "platform/RegistryHelper.h"

namespace tessara {

/// The text with its first comma turned into a point; later commas stay.
std::u16string CommaToPoint(std::u16string text);

/// Bits 0 to 7 of a device word.
constexpr std::uint8_t LowByte(std::int32_t word) {
  return static_cast<std::uint8_t>(word & 0xFF);
}

/// Bits 8 to 15 of a device word.
constexpr std::uint8_t HighByte(std::int32_t word) {
  return static_cast<std::uint8_t>((word & 0xFF00) / 256);
}

/// A version text in the system's notation, ready to be converted to a number: its first point or
/// comma turned into the system's decimal separator, unless it holds that separator already.
///
/// The separator is the user's setting `sDecimal`, read anew at each call; a failure of `registry`
/// passes to the caller. Where the setting is empty the text comes back unchanged.
std::u16string ToLocaleDecimal(std::u16string text, RegistryHelper& registry);

/// The nearest number with three decimals. A tie goes to the even neighbour and counts only if the
/// binary value itself lies on it: 1.0635 is stored a little below its tie and gives 1.063,
/// 1.0645 a little above and gives 1.065.
double RoundToThreeDecimals(double number);

}  // namespace tessara
