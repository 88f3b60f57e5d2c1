#include "json/JsonError.h"

#include <array>
#include <utility>

namespace tessara {

namespace {

/// In the order of jsonProblem::Kind.
constexpr std::array kindNames{"an object", "a list", "text", "a number", "true or false"};

struct ProblemText {
  std::string operator()(const jsonProblem::Missing& /*problem*/) const { return "missing"; }
  std::string operator()(const jsonProblem::Other& problem) const { return problem.text; }
  std::string operator()(const jsonProblem::WrongKind& problem) const {
    return problem.value + " is not " + kindNames.at(static_cast<std::size_t>(problem.expected));
  }
  std::string operator()(const jsonProblem::WrongNumber& problem) const {
    return problem.value + " is not " + (problem.isWhole ? "" : "a whole number ") + "within " +
           problem.min + " to " + problem.max;
  }
  std::string operator()(const jsonProblem::WrongChoice& problem) const {
    std::string text = problem.value + " is not one of";
    const char* gap = " ";
    for (const std::string& choice : problem.choices) {
      text += gap + choice;
      gap = ", ";
    }
    return text;
  }
};

std::string messageOf(const std::string& path, const JsonProblem& problem) {
  return (path.empty() ? "" : path + ": ") + std::visit(ProblemText{}, problem);
}

}  // namespace

JsonSyntaxError::JsonSyntaxError(const Place& place, std::string cause)
    : std::runtime_error("invalid JSON at line " + std::to_string(place.line) + ", column " +
                         std::to_string(place.column) + ": " + cause),
      place_(place),
      cause_(std::move(cause)) {}

JsonError::JsonError(std::string path, JsonProblem problem)
    : std::runtime_error(messageOf(path, problem)),
      path_(std::move(path)),
      problem_(std::move(problem)) {}

}  // namespace tessara
