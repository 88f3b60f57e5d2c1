#pragma once

#include <string>
#include <vector>

#include "catalogue/CatalogueChecker.h"

namespace tessara {

/// The entries as a table of plain text, one line each under a line of headings: the line in the
/// file, identification words, hidden firmware row, firmware, registers, mode values and links. A
/// place that is not there shows as a dash. Empty for no entries.
std::string catalogueTable(const std::vector<CatalogueEntry>& entries);

}  // namespace tessara
