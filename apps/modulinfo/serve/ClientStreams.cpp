#include "serve/ClientStreams.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace tessara {

namespace {

/// A copy above the standard streams that programs started from here do not inherit.
int keep(int descriptor, const char* name) {
  const int kept = fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  if (kept < 0) throw std::system_error(errno, std::generic_category(), name);
  return kept;
}

}  // namespace

ClientStreams::ClientStreams()
    : in_(keep(STDIN_FILENO, "standard input")), out_(keep(STDOUT_FILENO, "standard output")) {
  const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
  dup2(nothing, STDIN_FILENO);
  close(nothing);
  dup2(STDERR_FILENO, STDOUT_FILENO);
}

ClientStreams::~ClientStreams() {
  close(in_);
  close(out_);
}

}  // namespace tessara
