#pragma once

#include <string>
#include <vector>

namespace tessara::bench {

/// Runs a program with its arguments, discards its output and returns the milliseconds from start
/// to exit. Throws std::runtime_error if the program cannot be started or exits with a status other
/// than 0.
double millisecondsOf(const std::vector<std::string>& words);

}  // namespace tessara::bench
