#include "knowledge/Datasheet.h"

#include <algorithm>
#include <array>

#include "localisation/Language.h"

namespace tessara {
namespace {

constexpr auto germanSheet = "DatasheetDE";
constexpr auto englishSheet = "DatasheetEN";
constexpr auto frenchSheet = "DatasheetFR";
constexpr auto italianSheet = "DatasheetIT";

struct SheetOf {
  std::int32_t number;
  const char* tag;
};

constexpr std::array<SheetOf, 5> byLanguage{
    {{1, germanSheet}, {2, englishSheet}, {3, frenchSheet}, {4, englishSheet}, {5, italianSheet}}};

/// By telephone country code: France, Spain, Austria and Germany.
constexpr std::array<SheetOf, 4> byCountry{
    {{33, frenchSheet}, {34, englishSheet}, {43, germanSheet}, {49, germanSheet}}};

template <std::size_t Rows>
const char* tagOf(const std::array<SheetOf, Rows>& table, std::int32_t number) {
  const auto* row = std::find_if(table.begin(), table.end(),
                                 [&](const SheetOf& sheet) { return sheet.number == number; });
  return row == table.end() ? englishSheet : row->tag;
}

}  // namespace

const char* datasheetTag(std::int16_t language, const Locale& locale) {
  return language == 0 ? tagOf(byCountry, GetSystemCountryCode(locale))
                       : tagOf(byLanguage, language);
}

}  // namespace tessara
