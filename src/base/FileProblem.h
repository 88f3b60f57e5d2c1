#pragma once

#include <cstddef>
#include <string>

namespace tessara {

/// A fault in a file that people write, or a remark on it.
struct FileProblem {
  /// The line as editors count it, from 1; 0 for the file as a whole.
  std::size_t line = 0;
  /// UTF-8.
  std::string message;
  /// The character of the line, from 1; 0 for the line as a whole.
  std::size_t column = 0;
};

/// `problem` on one line, as compilers print it: "file:line:column: message". A line or column of 0
/// is left out.
std::string toLine(const std::string& file, const FileProblem& problem);

}  // namespace tessara
