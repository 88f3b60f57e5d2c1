#include "base/Text.h"

#include <algorithm>
#include <array>

namespace tessara {
namespace {

constexpr char32_t replacement = 0xFFFD;

bool isContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

struct LeadByte {
  unsigned char mask;
  unsigned char pattern;
  std::size_t length;
  char32_t smallest;
};

constexpr std::array<LeadByte, 4> leadBytes{{{0x80, 0x00, 1, 0x0},
                                             {0xE0, 0xC0, 2, 0x80},
                                             {0xF0, 0xE0, 3, 0x800},
                                             {0xF8, 0xF0, 4, 0x10000}}};

/// Takes one code point off the front of `text`; a malformed byte counts as one code point.
char32_t takeCodePoint(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  const auto* lead = std::find_if(leadBytes.begin(), leadBytes.end(), [&](const LeadByte& row) {
    return (first & row.mask) == row.pattern;
  });
  const auto tail = lead == leadBytes.end() ? 0 : lead->length - 1;
  const bool whole =
      lead != leadBytes.end() && text.size() > tail &&
      std::all_of(text.begin() + 1, text.begin() + 1 + static_cast<int>(tail), isContinuation);
  if (!whole) {
    text.remove_prefix(1);
    return replacement;
  }
  char32_t point = first & static_cast<unsigned char>(~lead->mask);
  for (std::size_t i = 1; i <= tail; ++i) {
    point = (point << 6U) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  text.remove_prefix(lead->length);
  const bool surrogate = point >= 0xD800 && point <= 0xDFFF;
  return point < lead->smallest || point > 0x10FFFF || surrogate ? replacement : point;
}

void appendUtf8(std::string& out, char32_t point) {
  if (point < 0x80) {
    out += static_cast<char>(point);
  } else if (point < 0x800) {
    out += static_cast<char>(0xC0U | (point >> 6U));
    out += static_cast<char>(0x80U | (point & 0x3FU));
  } else if (point < 0x10000) {
    out += static_cast<char>(0xE0U | (point >> 12U));
    out += static_cast<char>(0x80U | ((point >> 6U) & 0x3FU));
    out += static_cast<char>(0x80U | (point & 0x3FU));
  } else {
    out += static_cast<char>(0xF0U | (point >> 18U));
    out += static_cast<char>(0x80U | ((point >> 12U) & 0x3FU));
    out += static_cast<char>(0x80U | ((point >> 6U) & 0x3FU));
    out += static_cast<char>(0x80U | (point & 0x3FU));
  }
}

template <typename Unit>
constexpr Unit upper(Unit c) {
  return c >= Unit{'a'} && c <= Unit{'z'} ? static_cast<Unit>(c - Unit{'a'} + Unit{'A'}) : c;
}

template <typename Unit>
std::basic_string<Unit> toUpper(std::basic_string_view<Unit> text) {
  std::basic_string<Unit> out(text);
  std::transform(out.begin(), out.end(), out.begin(), upper<Unit>);
  return out;
}

template <typename Unit>
bool isSameLetter(Unit left, Unit right) {
  return upper(left) == upper(right);
}

template <typename Unit>
bool isEqual(std::basic_string_view<Unit> left, std::basic_string_view<Unit> right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), isSameLetter<Unit>);
}

}  // namespace

std::u16string fromUtf8(std::string_view text) {
  std::u16string out;
  out.reserve(text.size());
  while (!text.empty()) {
    const char32_t point = takeCodePoint(text);
    if (point < 0x10000) {
      out += static_cast<char16_t>(point);
    } else {
      out += static_cast<char16_t>(0xD7C0U + (point >> 10U));
      out += static_cast<char16_t>(0xDC00U + (point & 0x3FFU));
    }
  }
  return out;
}

std::string toUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const bool high = unit >= 0xD800 && unit <= 0xDBFF;
    const bool pair = high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF;
    if (pair) {
      appendUtf8(out, 0x10000U + ((unit - 0xD800U) << 10U) + (text[i + 1] - 0xDC00U));
      ++i;
    } else {
      appendUtf8(out, unit >= 0xD800 && unit <= 0xDFFF ? replacement : unit);
    }
  }
  return out;
}

std::u16string decimalText(std::int64_t number) {
  return fromUtf8(std::to_string(number));
}

std::u16string decimalText(std::uint64_t number) {
  return fromUtf8(std::to_string(number));
}

std::u16string hexText(std::int16_t word) {
  constexpr std::u16string_view digits = u"0123456789ABCDEF";
  auto rest = static_cast<std::uint16_t>(word);
  std::u16string out;
  do {
    out.insert(out.begin(), digits[rest & 0xFU]);
    rest = static_cast<std::uint16_t>(rest >> 4U);
  } while (rest != 0);
  return out;
}

std::string upperCase(std::string_view text) {
  return toUpper(text);
}

std::u16string upperCase(std::u16string_view text) {
  return toUpper(text);
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
  return isEqual(left, right);
}

bool equalIgnoringCase(std::u16string_view left, std::u16string_view right) {
  return isEqual(left, right);
}

bool containsIgnoringCase(std::u16string_view text, std::u16string_view part) {
  return part.empty() || std::search(text.begin(), text.end(), part.begin(), part.end(),
                                     isSameLetter<char16_t>) != text.end();
}

}  // namespace tessara
