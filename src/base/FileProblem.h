#pragma once

#include <cstddef>
#include <string>

namespace tessara {

/// Something wrong with a file that people write, or worth knowing about it.
struct FileProblem {
  /// The line in which an editor shows it, from 1; 0 for the file as a whole.
  std::size_t line = 0;
  /// UTF-8.
  std::string message;
};

/// `problem` on one line as compilers write it: "file:line: message", without the line if it is 0.
std::string toLine(const std::string& file, const FileProblem& problem);

}  // namespace tessara
