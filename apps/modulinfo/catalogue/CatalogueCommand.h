#pragma once

#include <filesystem>
#include <iosfwd>
#include <vector>

namespace tessara {

/// Writes to `out` for each of the catalogues whether the control can use it, its entries as a
/// table, and what is wrong in which line. True if nothing is wrong.
bool runCatalogueCheck(const std::vector<std::filesystem::path>& files, std::ostream& out);

}  // namespace tessara
