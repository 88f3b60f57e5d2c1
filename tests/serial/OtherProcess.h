#pragma once

#include <functional>
#include <stdexcept>

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessara::testing {

/// Runs `action` in a process of its own. Gives what it gives (0 to 255), or minus the number of
/// the signal that ended it. This process must have no other thread at that moment: the new one
/// would wait for ever for a lock, of the allocator for example, that such a thread holds.
inline int inAnotherProcess(const std::function<int()>& action) {
  const ::pid_t child = ::fork();
  if (child == 0) {
    ::_exit(action());
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

/// The same without the rights of root, whom nothing keeps out.
inline int inUnprivilegedProcess(const std::function<int()>& action) {
  constexpr ::uid_t nobody = 65534;
  return inAnotherProcess([&] {
    if (::geteuid() == 0 && ::setuid(nobody) != 0) {
      throw std::runtime_error("root cannot give up its rights");
    }
    return action();
  });
}

}  // namespace tessara::testing
