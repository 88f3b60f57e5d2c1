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

/// The result of checking a language file.
struct LanguageReport {
  /// The number of the language whose file has this name; 0 if there is none.
  std::int16_t language = 0;
  /// Whether the control loads the file, falls back to its built-in German texts, or stops its
  /// start-up with an error, and why.
  std::string verdict;
  /// The sections in the order of the file, repeated ones included, up to an error that stops the
  /// loading.
  std::vector<SectionReport> sections;
  /// What is wrong.
  std::vector<FileProblem> problems;
  /// Lines between sections that the control ignores, like comments.
  std::vector<FileProblem> ignored;
};

/// Reads `bytes` as the control reads a language file.
LanguageReport checkLanguage(const std::string& bytes);

/// The same for a file; one that cannot be read is a problem.
LanguageReport checkLanguageFile(const std::filesystem::path& path);

}  // namespace tessara
