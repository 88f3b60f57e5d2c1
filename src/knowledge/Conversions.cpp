#include "knowledge/Conversions.h"

#include <cmath>
#include <string_view>

namespace tessara {
namespace {

constexpr char16_t comma = u',';
constexpr char16_t point = u'.';

std::u16string replaceFirst(std::u16string text, char16_t character,
                            std::u16string_view replacement) {
  if (const auto place = text.find(character); place != std::u16string::npos) {
    text.replace(place, 1, replacement);
  }
  return text;
}

}  // namespace

std::u16string CommaToPoint(std::u16string text) {
  return replaceFirst(std::move(text), comma, u".");
}

std::u16string ToLocaleDecimal(std::u16string text, RegistryHelper& registry) {
  const std::u16string separator = toText(
      registry.GetValue(registry.HKeyCurrentUser(), u"Control Panel\\International\\", u"sDecimal"),
      u".");
  if (text.find(separator) != std::u16string::npos) {
    return text;
  }
  const char16_t other = separator == u"," ? point : comma;
  return replaceFirst(std::move(text), other, separator);
}

double RoundToThreeDecimals(double number) {
  // From here on, adjacent doubles differ by more than the third decimal.
  constexpr double coarse = 0x1p43;
  if (!(std::fabs(number) < coarse)) {
    return number;
  }
  const double thousandths = number * 1000;
  const double lost = std::fma(number, 1000, -thousandths);
  const double below = std::floor(thousandths);
  const bool seemsTie = thousandths - below == 0.5;
  if (seemsTie && lost != 0) {
    return (lost < 0 ? below : below + 1) / 1000;
  }
  return std::nearbyint(thousandths) / 1000;
}

}  // namespace tessara
