#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "base/FileProblem.h"

namespace tessara {

/// A section as the control reads it.
struct SectionReport {
  std::u16string header;
  /// The line of its header, from 1.
  std::size_t line = 0;
  /// The number that it announces.
  std::int16_t count = 0;
  /// The texts read.
  std::vector<std::u16string> texts;
};

/// What a language file would load as.
struct LanguageReport {
  /// The language number that has a file of this name; 0 if none has.
  std::int16_t language = 0;
  /// What the control makes of the file, and why: takes it, falls back on its German wording, or
  /// ends its start with an error.
  std::string verdict;
  /// The sections in the order of the file, repeated ones included, up to the line that ends the
  /// load.
  std::vector<SectionReport> sections;
  /// What is wrong.
  std::vector<FileProblem> problems;
  /// Lines between sections that the control passes over, as it does with comments.
  std::vector<FileProblem> passedOver;
};

/// Reads `bytes` as the control reads a language file.
LanguageReport checkLanguage(const std::string& bytes);

/// The same for a file; one that cannot be read is a problem.
LanguageReport checkLanguageFile(const std::filesystem::path& path);

}  // namespace tessara
