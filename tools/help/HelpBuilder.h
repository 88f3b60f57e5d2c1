#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tessara {

/// Builds the help of one language in the folder `out`, which has the name of the help file without
/// ".chm": its HTML pages and the project for the help compiler.
///
/// `source` is the folder with `help.txt` and the pages, `languageFile` the language file with the
/// texts that they show. Returns the problems, one line each; nothing is written if there are any.
/// Local links are checked here, pictures by the help compiler.
std::vector<std::string> buildHelp(const std::filesystem::path& source,
                                   const std::filesystem::path& languageFile,
                                   const std::filesystem::path& out);

}  // namespace tessara
