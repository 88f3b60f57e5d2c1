#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/FileProblem.h"

namespace tessara {

/// A language file in the making.
struct BuiltLanguage {
  /// The file: byte order mark, sections with their counts, all lines ended by CR LF, in UTF-16
  /// little-endian. Empty if there are problems.
  std::string bytes;
  std::vector<FileProblem> problems;
};

/// Builds a language file from its source, which is UTF-8 text with one entry a line:
///
///     # a comment
///     [ModulInfo]
///     0 = Address
///     1 = COM port
///
/// A section starts with its header; its entries follow, numbered from 0 without a gap. The text is
/// everything behind the first "= " as it stands. Blank lines and lines that start with # count for
/// nothing. Each of the five sections must be there once with all texts that the control and its
/// host read; the counts come out of the entries.
BuiltLanguage buildLanguage(std::string_view source);

/// Builds the file `out` from the file `source`. With problems, files that cannot be read or
/// written among them, nothing is written.
std::vector<FileProblem> buildLanguageFile(const std::filesystem::path& source,
                                           const std::filesystem::path& out);

}  // namespace tessara
