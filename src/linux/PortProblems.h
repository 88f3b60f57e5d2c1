#pragma once

#include <functional>
#include <set>
#include <string>
#include <utility>

namespace tessara {

/// Called with what is wrong with a port that has been left out, as one sentence.
using PortProblemSink = std::function<void(const std::string& problem)>;

/// Prints the problem on standard error, behind the name of the program.
void printPortProblem(const std::string& problem);

/// Passes each problem on once, however often the ports are looked up.
class PortProblems {
 public:
  explicit PortProblems(PortProblemSink sink) : sink_(std::move(sink)) {}

  void report(const std::string& problem) {
    if (reported_.insert(problem).second && sink_) sink_(problem);
  }

 private:
  PortProblemSink sink_;
  std::set<std::string> reported_;
};

}  // namespace tessara
