#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tessara {

/// Builds the help of one language in the folder `out`, named like the help file without ".chm":
/// its pages as HTML, and the project from which the help file is compiled there.
///
/// `source` is the folder with `help.txt` and the pages, `languageFile` the language file whose
/// texts they show. Gives what is wrong, a line for each thing: with anything wrong, nothing is
/// written. Local links have to lead somewhere; whether pictures are there, the compiler will tell.
std::vector<std::string> buildHelp(const std::filesystem::path& source,
                                   const std::filesystem::path& languageFile,
                                   const std::filesystem::path& out);

}  // namespace tessara
