#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace tessara {

/// A value passed between host and control: nothing, text, a whole number, a floating-point
/// number, a decimal (an unsigned whole number of up to 64 bits with all its digits) or a truth
/// value.
using Variant =
    std::variant<std::monostate, std::u16string, std::int64_t, double, std::uint64_t, bool>;

/// The conversions of a variant. `separator` is the system's decimal separator.
///
/// Text converts to a number if it is a decimal number in the system's notation, with or without
/// blanks around it; any other text is a type mismatch (error 13). Nothing converts to zero and to
/// the empty text, true to -1. Conversion to a whole number rounds to the nearest, ties to even; a
/// number outside the range of its type is an overflow (error 6).
std::u16string toText(const Variant& value, std::u16string_view separator);
double toDouble(const Variant& value, std::u16string_view separator);
std::int32_t toInt32(const Variant& value, std::u16string_view separator);
std::int16_t toInt16(const Variant& value, std::u16string_view separator);
std::uint8_t toByte(const Variant& value, std::u16string_view separator);
bool toBool(const Variant& value, std::u16string_view separator);

/// Takes a 32-bit host value into a 16-bit field; outside -32768 to 32767 it is an overflow
/// (error 6) whose message names `what`.
std::int16_t narrowToInt16(std::int32_t value, std::string_view what);

/// The shortest text that converts back to the same number, without exponent between 1e-5 and
/// 1e15, with the system's decimal separator and no trailing zeros.
std::u16string numberText(double value, std::u16string_view separator);
std::u16string numberText(float value, std::u16string_view separator);

}  // namespace tessara
