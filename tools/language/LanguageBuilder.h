#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/FileProblem.h"

namespace tessara {

/// The result of building a language file.
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
/// everything after the first " = ", unchanged. Blank lines and lines that start with # are
/// ignored. Each of the five sections must occur once, with all texts that the control and its host
/// read; the counts of the file are those of the entries.
BuiltLanguage buildLanguage(std::string_view source);

/// Builds the file `out` from the file `source` and returns what is wrong, unreadable and
/// unwritable files included. If anything is wrong, nothing is written.
std::vector<FileProblem> buildLanguageFile(const std::filesystem::path& source,
                                           const std::filesystem::path& out);

}  // namespace tessara
