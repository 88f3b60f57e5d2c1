#include "catalogue/CatalogueTable.h"

#include <algorithm>
#include <iterator>

#include "base/Text.h"

namespace tessara {
namespace {

using Cells = std::vector<std::string>;

/// A column that shows one place of one level.
struct Column {
  const char* heading;
  std::vector<std::string> CatalogueEntry::*level;
  std::size_t place;
};

const std::vector<Column>& columns() {
  static const std::vector<Column> all{
      {"Vendor", &CatalogueEntry::family, 0},      {"Family", &CatalogueEntry::family, 1},
      {"Device", &CatalogueEntry::device, 0},      {"HideFw", &CatalogueEntry::device, 1},
      {"Firmware", &CatalogueEntry::version, 0},   {"DevStatus", &CatalogueEntry::version, 3},
      {"ChnIn", &CatalogueEntry::version, 4},      {"DevError", &CatalogueEntry::version, 5},
      {"ChnOut", &CatalogueEntry::version, 6},     {"LedStatus", &CatalogueEntry::version, 7},
      {"Reserved", &CatalogueEntry::version, 8},   {"StringsReverse", &CatalogueEntry::version, 9},
      {"QuickSetup", &CatalogueEntry::version, 10}};
  return all;
}

std::string joined(const Cells& words) {
  std::string text;
  for (const std::string& word : words) {
    text += (text.empty() ? "" : " ") + word;
  }
  return text;
}

Cells headings() {
  Cells cells{"Line"};
  for (const Column& column : columns()) {
    cells.emplace_back(column.heading);
  }
  cells.emplace_back("Links");
  return cells;
}

Cells cellsOf(const CatalogueEntry& entry) {
  Cells cells{std::to_string(entry.line)};
  for (const Column& column : columns()) {
    const Cells& places = entry.*column.level;
    cells.push_back(column.place < places.size() ? places[column.place] : "-");
  }
  cells.push_back(entry.links.empty() ? "-" : joined(entry.links));
  return cells;
}

std::size_t widthOf(const std::string& text) {
  return fromUtf8(text).size();
}

}  // namespace

std::string catalogueTable(const std::vector<CatalogueEntry>& entries) {
  if (entries.empty()) {
    return {};
  }
  std::vector<Cells> rows{headings()};
  std::transform(entries.begin(), entries.end(), std::back_inserter(rows), cellsOf);
  std::string table;
  std::vector<std::size_t> widths(rows.front().size(), 0);
  for (const Cells& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], widthOf(row[i]));
    }
  }
  for (const Cells& row : rows) {
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
      table.append(row[i]).append(widths[i] - widthOf(row[i]) + 2, ' ');
    }
    table.append(row.back()).append("\n");
  }
  return table;
}

}  // namespace tessara
