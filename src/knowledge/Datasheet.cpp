#include "knowledge/Datasheet.h"

#include <algorithm>
#include <array>

#include "localisation/Language.h"

namespace tessara {
namespace {

constexpr auto german = "DatasheetDE";
constexpr auto english = "DatasheetEN";
constexpr auto french = "DatasheetFR";
constexpr auto italian = "DatasheetIT";

struct SheetOf {
  std::int32_t number;
  const char* tag;
};

constexpr std::array<SheetOf, 5> byLanguage{
    {{1, german}, {2, english}, {3, french}, {4, english}, {5, italian}}};

/// By telephone country code: France, Spain, Austria and Germany.
constexpr std::array<SheetOf, 4> byCountry{
    {{33, french}, {34, english}, {43, german}, {49, german}}};

template <std::size_t Rows>
const char* tagOf(const std::array<SheetOf, Rows>& table, std::int32_t number) {
  const auto* row = std::find_if(table.begin(), table.end(),
                                 [&](const SheetOf& sheet) { return sheet.number == number; });
  return row == table.end() ? english : row->tag;
}

}  // namespace

const char* datasheetTag(std::int16_t language, const Locale& locale) {
  return language == 0 ? tagOf(byCountry, GetSystemCountryCode(locale))
                       : tagOf(byLanguage, language);
}

}  // namespace tessara
