#pragma once

#include <filesystem>
#include <iosfwd>
#include <vector>

namespace tessara {

/// Writes to `out` for each of the catalogues whether the control can use it, what it lists, as a
/// table, and what lookups trip over in which line. True if there is nothing of that kind.
bool runCatalogueCheck(const std::vector<std::filesystem::path>& files, std::ostream& out);

}  // namespace tessara
