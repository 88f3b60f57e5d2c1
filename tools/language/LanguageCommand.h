#pragma once

#include <filesystem>
#include <iosfwd>
#include <vector>

namespace tessara {

/// Writes to `out` what each of the language files would load as, section by section, and what is
/// wrong with which line. True if nothing is wrong.
bool runLanguageCheck(const std::vector<std::filesystem::path>& files, std::ostream& out);

/// Makes the language file `result` from its source and tells problems on `err`. True if the
/// file was made.
bool runLanguageBuild(const std::filesystem::path& source, const std::filesystem::path& result,
                      std::ostream& err);

}  // namespace tessara
