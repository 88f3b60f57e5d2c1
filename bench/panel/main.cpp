// The start of `modulinfo-panel` from its process to its first painted frame, against a bare Qt
// window with as many labels. Both are the whole program with everything that it loads, and both
// are ended by the same plugin at that frame; measured in turn.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

namespace {

constexpr int runs = 61;
constexpr double bound = 1.5;

double run(const char* program) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
  const char* words[] = {program, nullptr};
  const auto begun = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (posix_spawn(&child, program, &actions, nullptr, const_cast<char**>(words), environ) != 0) {
    std::perror(program);
    std::exit(1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - begun;
  posix_spawn_file_actions_destroy(&actions);
  if (status != 0) {
    std::fprintf(stderr, "%s ended with status %d\n", program, status);
    std::exit(1);
  }
  return taken.count();
}

double median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + runs / 2, values.end());
  return values[runs / 2];
}

}  // namespace

int main() {
  // Somebody who starts the program for the first time.
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

  std::vector<double> bare;
  std::vector<double> panel;
  std::vector<double> ratios;
  for (int i = 0; i < runs; ++i) {
    bare.push_back(run(TESSARA_BARE));
    panel.push_back(run(TESSARA_PANEL));
    // Pair by pair, since other work on the machine slows both down.
    ratios.push_back(panel.back() / bare.back());
  }
  std::filesystem::remove_all(folder);
  const double ratio = median(ratios);
  std::printf("bare window %.1f ms  modulinfo-panel %.1f ms  ratio %.2f (bound %.1f)\n",
              median(bare), median(panel), ratio, bound);
  return ratio <= bound ? 0 : 1;
}
