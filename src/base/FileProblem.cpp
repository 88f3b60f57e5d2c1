#include "base/FileProblem.h"

namespace tessara {

std::string toLine(const std::string& file, const FileProblem& problem) {
  const auto line = problem.line == 0 ? "" : ":" + std::to_string(problem.line);
  return file + line + ": " + problem.message;
}

}  // namespace tessara
