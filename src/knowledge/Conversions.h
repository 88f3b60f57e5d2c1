#pragma once

#include <cstdint>
#include <string>

#include "platform/RegistryHelper.h"

namespace tessara {

/// The text with its first comma replaced by a point; later commas stay.
std::u16string CommaToPoint(std::u16string text);

/// Bits 0 to 7 of a device word.
constexpr std::uint8_t LowByte(std::int32_t word) {
  return static_cast<std::uint8_t>(word & 0xFF);
}

/// Bits 8 to 15 of a device word.
constexpr std::uint8_t HighByte(std::int32_t word) {
  return static_cast<std::uint8_t>((word & 0xFF00) / 256);
}

/// A version text in the system's notation, ready for conversion to a number: its first point or
/// comma is replaced by the system's decimal separator, unless the text contains that separator
/// already.
///
/// The separator is the user's setting `sDecimal`, read at each call; an error of `registry` passes
/// to the caller. If the setting is empty, the text is returned unchanged.
std::u16string ToLocaleDecimal(std::u16string text, RegistryHelper& registry);

/// The nearest number with three decimals, ties to even. Only the exact binary value counts as a
/// tie: 1.0635 is stored slightly below it and gives 1.063, 1.0645 slightly above and gives 1.065.
double RoundToThreeDecimals(double number);

}  // namespace tessara
