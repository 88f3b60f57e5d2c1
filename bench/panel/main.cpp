// The time from starting `modulinfo-panel` to its first painted frame, against a bare Qt window
// with as many labels. Both are whole programs with everything that they load; the same plugin ends
// both at that frame. The two alternate.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <vector>

#include "../Median.h"
#include "../WholeProgram.h"

namespace {

using tessara::bench::median;
using tessara::bench::millisecondsOf;

constexpr int runs = 61;
constexpr double bound = 1.5;

/// Prints the times of the two starts and returns their ratio.
double measure() {
  std::vector<double> bare;
  std::vector<double> panel;
  std::vector<double> ratios;
  for (int i = 0; i < runs; ++i) {
    bare.push_back(millisecondsOf({TESSARA_BARE}));
    panel.push_back(millisecondsOf({TESSARA_PANEL}));
    // Pair by pair, since other work on the machine slows both down.
    ratios.push_back(panel.back() / bare.back());
  }
  const double ratio = median(ratios);
  std::printf("bare window %.1f ms  modulinfo-panel %.1f ms  ratio %.2f (bound %.1f)\n",
              median(bare), median(panel), ratio, bound);
  return ratio;
}

}  // namespace

int main() {
  // A user who starts the program for the first time.
  char folder[] = "/tmp/bench-panel-XXXXXX";
  if (mkdtemp(folder) == nullptr) {
    std::perror(folder);
    return 1;
  }
  setenv("XDG_CONFIG_HOME", folder, 1);
  setenv("XDG_RUNTIME_DIR", folder, 1);
  setenv("QT_PLUGIN_PATH", TESSARA_PLUGINS, 1);
  setenv("QT_QPA_GENERIC_PLUGINS", "firstframe", 1);
  constexpr int keep = 0;
  setenv("QT_QPA_PLATFORM", "offscreen", keep);

  double ratio = 0;
  try {
    ratio = measure();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  std::filesystem::remove_all(folder);
  return ratio > 0 && ratio <= bound ? 0 : 1;
}
