#pragma once

#include <string>
#include <vector>

#include "catalogue/CatalogueChecker.h"

namespace tessara {

/// The entries as a table of plain text, one line each below a line of headings: the line in the
/// file, identification words, hidden firmware row, firmware, registers, mode values and links. A
/// dash stands for a missing value. Empty without entries.
std::string catalogueTable(const std::vector<CatalogueEntry>& entries);

}  // namespace tessara
