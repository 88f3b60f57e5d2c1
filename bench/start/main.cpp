// A whole `modulinfo read --simulate`, from process start to exit less the silences that the line
// requires, against a program that only creates a QCoreApplication. The two alternate.

#include <cstdio>
#include <exception>
#include <vector>

#include "../Median.h"
#include "../WholeProgram.h"

namespace {

using tessara::bench::median;
using tessara::bench::millisecondsOf;

constexpr int runs = 41;
constexpr double bound = 5;

/// The simulated module replies at once, so only the silences before its 9 requests are wire time:
/// 3.5 characters of 11 bits at 19200 bit/s each, in milliseconds.
constexpr double wireTime = 9 * 3.5 * 11 / 19200 * 1e3;

/// Prints the times of the two and returns their ratio.
double measure() {
  std::vector<double> empty;
  std::vector<double> read;
  for (int i = 0; i < runs; ++i) {
    empty.push_back(millisecondsOf({TESSARA_EMPTY}));
    read.push_back(millisecondsOf({TESSARA_MODULINFO, "read", "--simulate", TESSARA_MODULE}) -
                   wireTime);
  }
  const double ratio = median(read) / median(empty);
  std::printf(
      "empty QCoreApplication %.2f ms  modulinfo read less wire time %.2f ms  ratio %.2f "
      "(bound %.1f)\n",
      median(empty), median(read), ratio, bound);
  return ratio;
}

}  // namespace

int main() {
  try {
    return measure() <= bound ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
