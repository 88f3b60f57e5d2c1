#pragma once

#include <stdexcept>

namespace tessara {

/// Why an open line can no longer be used.
enum class LineProblem {
  Gone,       ///< unplugged, or its other end has hung up
  Cancelled,  ///< given up by SerialLine::cancel
};

/// An open line can no longer be used. The message is the cause alone: "the port has gone".
class LineError : public std::runtime_error {
 public:
  explicit LineError(LineProblem problem)
      : std::runtime_error(problem == LineProblem::Gone ? "the port has gone"
                                                        : "the access was cancelled"),
        problem_(problem) {}

  [[nodiscard]] LineProblem problem() const { return problem_; }

 private:
  LineProblem problem_;
};

}  // namespace tessara
