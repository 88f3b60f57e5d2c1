#pragma once

#include <filesystem>
#include <iosfwd>
#include <vector>

namespace tessara {

/// Writes to `out` the content of each language file as the control would load it, section by
/// section, and what is wrong in which line. True if nothing is wrong.
bool runLanguageCheck(const std::vector<std::filesystem::path>& files, std::ostream& out);

/// Builds the language file `result` from its source and writes what is wrong to `err`. True if the
/// file was built.
bool runLanguageBuild(const std::filesystem::path& source, const std::filesystem::path& result,
                      std::ostream& err);

}  // namespace tessara
