#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace tessara {

/// The text cannot be read as JSON at all. The message, "invalid JSON at line 2, column 14:
/// unexpected end of input", names the place and the cause.
class JsonSyntaxError : public std::runtime_error {
 public:
  struct Place {
    /// All counted from 1; columns are bytes.
    std::size_t byte;
    std::size_t line;
    std::size_t column;
  };

  JsonSyntaxError(const Place& place, std::string cause);

  [[nodiscard]] const Place& place() const { return place_; }
  [[nodiscard]] const std::string& cause() const { return cause_; }

 private:
  Place place_;
  std::string cause_;
};

/// What can be wrong with a value.
namespace jsonProblem {

/// A key that an object must have is not there.
struct Missing {};

/// Any other problem, in words.
struct Other {
  std::string text;
};

enum class Kind : std::uint8_t { Object, List, Text, Number, Truth };

/// The value is of another kind.
struct WrongKind {
  std::string value;
  Kind expected;
};

/// The value is not a whole number of that range.
struct WrongNumber {
  std::string value;
  bool isWhole;
  /// As decimal text: the range may be that of any integer type.
  std::string min;
  std::string max;
};

/// The value is none of these texts.
struct WrongChoice {
  std::string value;
  std::vector<std::string> choices;
};

}  // namespace jsonProblem

using JsonProblem = std::variant<jsonProblem::Missing, jsonProblem::Other, jsonProblem::WrongKind,
                                 jsonProblem::WrongNumber, jsonProblem::WrongChoice>;

/// A value is not what its reader needs. The message names its path, and what was wrong with it:
/// "modules[2].address: 300 is not within 1 to 247". Long values are cut off.
class JsonError : public std::runtime_error {
 public:
  JsonError(std::string path, JsonProblem problem);

  /// Empty for the outermost value.
  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] const JsonProblem& problem() const { return problem_; }

 private:
  std::string path_;
  JsonProblem problem_;
};

}  // namespace tessara
