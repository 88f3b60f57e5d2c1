// A whole `modulinfo read --simulate`, from process start to exit less the silences that the line
// demands, against a program that only makes a QCoreApplication. Measured in turn.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ;

namespace {

constexpr int runs = 41;

/// The simulated module answers at once, so only the silences before its 9 requests are wire time:
/// 3.5 characters of 11 bits at 19200 bit/s each.
constexpr double wireTime = 9 * 3.5 * 11 / 19200;

double run(std::vector<const char*> words) {
  words.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  const auto begun = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (posix_spawn(&child, words[0], &actions, nullptr, const_cast<char**>(words.data()), environ) !=
      0) {
    std::perror(words[0]);
    std::exit(1);
  }
  int status = 0;
  waitpid(child, &status, 0);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begun;
  posix_spawn_file_actions_destroy(&actions);
  if (status != 0) {
    std::fprintf(stderr, "%s ended with status %d\n", words[0], status);
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
  std::vector<double> empty;
  std::vector<double> read;
  for (int i = 0; i < runs; ++i) {
    empty.push_back(run({TESSARA_EMPTY}));
    read.push_back(run({TESSARA_MODULINFO, "read", "--simulate", TESSARA_MODULE}) - wireTime);
  }
  std::printf("empty QCoreApplication %.2f ms  modulinfo read less wire time %.2f ms  ratio %.2f\n",
              median(empty) * 1e3, median(read) * 1e3, median(read) / median(empty));
  return 0;
}
