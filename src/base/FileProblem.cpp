#include "base/FileProblem.h"

namespace tessara {

std::string toLine(const std::string& file, const FileProblem& problem) {
  std::string text = file;
  for (const std::size_t number : {problem.line, problem.column}) {
    text += number == 0 ? "" : ":" + std::to_string(number);
  }
  return text + ": " + problem.message;
}

}  // namespace tessara
