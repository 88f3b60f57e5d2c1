#include "WholeProgram.h"

#include <chrono>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessara::bench {
namespace {

/// Where the output of a program goes.
class Dropped {
 public:
  Dropped() {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions_, STDOUT_FILENO, STDERR_FILENO);
  }
  Dropped(const Dropped&) = delete;
  Dropped& operator=(const Dropped&) = delete;
  ~Dropped() { posix_spawn_file_actions_destroy(&actions_); }

  [[nodiscard]] const posix_spawn_file_actions_t* actions() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

}  // namespace

double millisecondsOf(const std::vector<std::string>& words) {
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  const Dropped output;

  const auto begun = std::chrono::steady_clock::now();
  pid_t child = 0;
  const int error =
      posix_spawn(&child, arguments.front(), output.actions(), nullptr, arguments.data(), environ);
  if (error != 0) throw std::system_error(error, std::generic_category(), words.front());
  int status = 0;
  waitpid(child, &status, 0);
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - begun;

  if (status != 0) {
    throw std::runtime_error(words.front() + " ended with status " + std::to_string(status));
  }
  return taken.count();
}

}  // namespace tessara::bench
