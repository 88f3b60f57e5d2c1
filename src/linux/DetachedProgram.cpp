#include "linux/DetachedProgram.h"

#include <QFile>
#include <QStandardPaths>
#include <array>
#include <cerrno>
#include <csignal>
#include <string>
#include <vector>

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tessara {
namespace {

constexpr int failed = 127;

/// The result of a system call that a signal may cut short.
template <class Call>
auto uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) {
    result = call();
  }
  return result;
}

/// Everything that the new process needs, made before there is one: between fork and exec nothing
/// may be allocated.
struct Start {
  std::string program;
  std::vector<std::string> words;
  std::vector<char*> arguments;
  std::string folder;
};

/// In the new process. Returns only if the program cannot be started.
void become(const Start& start) {
  const int nowhere = ::open("/dev/null", O_RDWR);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    ::dup2(nowhere, stream);
  }
  // The only thing that exec would hand on of how this program takes signals: that it ignores one.
  std::signal(SIGPIPE, SIG_DFL);
  // An open port that went along would stay locked for as long as the program runs.
  ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
  if (start.folder.empty() || ::chdir(start.folder.c_str()) == 0) {
    ::execv(start.program.c_str(), start.arguments.data());
  }
}

/// In the process between, which ends at once, so that nobody has to wait for the program.
[[noreturn]] void startAndEnd(const Start& start, int report) {
  ::setsid();
  const ::pid_t child = ::fork();
  if (child == 0) {
    become(start);
  }
  if (child <= 0) {
    const char sign = '!';
    [[maybe_unused]] const auto written = ::write(report, &sign, 1);
    ::_exit(failed);
  }
  ::_exit(0);
}

}  // namespace

bool startDetached(const CommandLine& command, const QString& folder) {
  Start start;
  start.program = QFile::encodeName(QStandardPaths::findExecutable(command.program)).toStdString();
  start.folder =
      QFile::encodeName(command.folder.isEmpty() ? folder : command.folder).toStdString();
  start.words.push_back(command.program.toStdString());
  for (const QString& argument : command.arguments) {
    start.words.push_back(QFile::encodeName(argument).toStdString());
  }
  for (std::string& word : start.words) {
    start.arguments.push_back(word.data());
  }
  start.arguments.push_back(nullptr);

  // Nothing comes through it when the program was started: that closes it.
  std::array<int, 2> report{};
  if (::pipe2(report.data(), O_CLOEXEC) != 0) {
    return false;
  }
  const ::pid_t between = ::fork();
  if (between == 0) {
    startAndEnd(start, report[1]);
  }
  ::close(report[1]);
  char sign = 0;
  const bool isStarted =
      between > 0 && uninterrupted([&] { return ::read(report[0], &sign, 1); }) == 0;
  ::close(report[0]);
  if (between > 0) {
    uninterrupted([&] { return ::waitpid(between, nullptr, 0); });
  }
  return isStarted;
}

}  // namespace tessara
