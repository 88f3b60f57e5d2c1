#pragma once

#include <string>
#include <vector>

namespace tessara::bench {

/// Runs a program with its arguments, what it prints dropped, and gives the milliseconds from its
/// start to its end. A program that cannot be started, or does not end with 0, is a
/// std::runtime_error.
double millisecondsOf(const std::vector<std::string>& words);

}  // namespace tessara::bench
