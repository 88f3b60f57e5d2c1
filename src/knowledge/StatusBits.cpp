#include "knowledge/StatusBits.h"

#include <algorithm>

namespace tessara {
namespace {

bool appliesTo(const StatusBit& row, std::int16_t familyID) {
  return row.families.empty() ||
         std::find(row.families.begin(), row.families.end(), familyID) != row.families.end();
}

}  // namespace

void appendStatusTexts(std::u16string& line, std::int16_t word, std::int16_t familyID,
                       std::span<const StatusBit> table, Connectors connectors,
                       const TextTables& texts) {
  auto remaining = static_cast<std::uint16_t>(word);
  for (const StatusBit& row : table) {
    if ((remaining & row.bit) == 0 || !appliesTo(row, familyID)) {
      continue;
    }
    remaining = static_cast<std::uint16_t>(remaining & ~row.bit);
    line += connectors.before;
    line += row.entry ? std::u16string_view(texts.TextStatus[*row.entry]) : std::u16string_view();
    line += row.fixed;
    line += connectors.after;
  }
}

}  // namespace tessara
