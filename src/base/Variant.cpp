#include "base/Variant.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace tessara {
namespace {

constexpr char16_t blank = u' ';

std::u16string_view trimmed(std::u16string_view text) {
  while (!text.empty() && text.front() == blank) {
    text.remove_prefix(1);
  }
  while (!text.empty() && text.back() == blank) {
    text.remove_suffix(1);
  }
  return text;
}

/// The text in the notation of std::from_chars, or nothing if it holds a character that numbers do
/// not have.
std::optional<std::string> plainNumber(std::u16string_view text, std::u16string_view separator) {
  constexpr std::u16string_view allowed = u"0123456789+-eE";
  std::string plain;
  while (!text.empty()) {
    if (!separator.empty() && text.starts_with(separator)) {
      plain += '.';
      text.remove_prefix(separator.size());
    } else if (allowed.find(text.front()) != std::u16string_view::npos) {
      plain += static_cast<char>(text.front());
      text.remove_prefix(1);
    } else {
      return std::nullopt;
    }
  }
  if (plain.starts_with('+')) {
    plain.erase(0, 1);
    if (plain.starts_with('-')) {
      return std::nullopt;
    }
  }
  return plain;
}

[[noreturn]] void raiseNotANumber(std::u16string_view text) {
  throw RunTimeError(ErrorNumber::TypeMismatch, "\"" + toUtf8(text) + "\" is not a number");
}

[[noreturn]] void raiseOverflow(std::string_view value, std::string_view what) {
  throw RunTimeError(ErrorNumber::Overflow,
                     std::string(value) + " is outside the range of " + std::string(what));
}

double textToDouble(std::u16string_view text, std::u16string_view separator) {
  const auto plain = plainNumber(trimmed(text), separator);
  double number = 0;
  if (!plain || plain->empty()) {
    raiseNotANumber(text);
  }
  const char* end = plain->data() + plain->size();
  const auto [stop, error] = std::from_chars(plain->data(), end, number);
  if (error == std::errc::invalid_argument || stop != end) {
    raiseNotANumber(text);
  }
  if (error == std::errc::result_out_of_range) {
    raiseOverflow(toUtf8(text), "a floating-point number");
  }
  return number;
}

template <typename Integer>
Integer toInteger(const Variant& value, std::u16string_view separator, std::string_view what) {
  const double number = std::nearbyint(toDouble(value, separator));
  if (!(number >= static_cast<double>(std::numeric_limits<Integer>::min()) &&
        number <= static_cast<double>(std::numeric_limits<Integer>::max()))) {
    raiseOverflow(toUtf8(toText(value, separator)), what);
  }
  return static_cast<Integer>(number);
}

template <typename Float>
std::u16string shortestText(Float value, std::u16string_view separator) {
  const auto size = std::fabs(static_cast<double>(value));
  const bool fixed = size == 0 || (size >= 1e-5 && size < 1e15);
  std::array<char, 64> buffer{};
  const auto [end, error] =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                    fixed ? std::chars_format::fixed : std::chars_format::scientific);
  std::u16string text = fromUtf8({buffer.data(), static_cast<std::size_t>(end - buffer.data())});
  if (const auto point = text.find(u'.'); point != std::u16string::npos) {
    text.replace(point, 1, separator);
  }
  return text;
}

struct TextOf {
  std::u16string_view separator;
  std::u16string operator()(std::monostate /*nothing*/) const { return {}; }
  std::u16string operator()(const std::u16string& text) const { return text; }
  std::u16string operator()(std::int64_t number) const { return decimalText(number); }
  std::u16string operator()(double number) const { return numberText(number, separator); }
  std::u16string operator()(std::uint64_t number) const { return decimalText(number); }
  std::u16string operator()(bool truth) const { return truth ? u"True" : u"False"; }
};

struct DoubleOf {
  std::u16string_view separator;
  double operator()(std::monostate /*nothing*/) const { return 0; }
  double operator()(const std::u16string& text) const { return textToDouble(text, separator); }
  double operator()(std::int64_t number) const { return static_cast<double>(number); }
  double operator()(double number) const { return number; }
  double operator()(std::uint64_t number) const { return static_cast<double>(number); }
  double operator()(bool truth) const { return truth ? -1 : 0; }
};

}  // namespace

std::u16string toText(const Variant& value, std::u16string_view separator) {
  return std::visit(TextOf{separator}, value);
}

double toDouble(const Variant& value, std::u16string_view separator) {
  return std::visit(DoubleOf{separator}, value);
}

std::int32_t toInt32(const Variant& value, std::u16string_view separator) {
  return toInteger<std::int32_t>(value, separator, "a 32-bit number");
}

std::int16_t toInt16(const Variant& value, std::u16string_view separator) {
  return toInteger<std::int16_t>(value, separator, "a 16-bit number");
}

std::uint8_t toByte(const Variant& value, std::u16string_view separator) {
  return toInteger<std::uint8_t>(value, separator, "0 to 255");
}

bool toBool(const Variant& value, std::u16string_view separator) {
  return toDouble(value, separator) != 0;
}

std::int16_t narrowToInt16(std::int32_t value, std::string_view what) {
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max()) {
    throw RunTimeError(ErrorNumber::Overflow, std::string(what) + ": " + std::to_string(value) +
                                                  " is outside -32768 to 32767");
  }
  return static_cast<std::int16_t>(value);
}

std::u16string numberText(double value, std::u16string_view separator) {
  return shortestText(value, separator);
}

std::u16string numberText(float value, std::u16string_view separator) {
  return shortestText(value, separator);
}

}  // namespace tessara
