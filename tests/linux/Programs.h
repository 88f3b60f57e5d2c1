#pragma once

#include <chrono>
#include <functional>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

#include "SettingsFolder.h"

namespace tessara::testing {

/// A desktop of its own, on which only the programs of the test are registered. GIO remembers what
/// it has read, so what asks for them runs in a process of its own.
class Programs : public SettingsFolder {
 protected:
  Programs() {
    const auto data = folder() / "data";
    std::filesystem::create_directories(data / "applications");
    std::filesystem::create_directory_symlink("/usr/share/mime", data / "mime");
    ::setenv("XDG_DATA_HOME", (folder() / "home").c_str(), 1);
    ::setenv("XDG_DATA_DIRS", data.c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", folder().c_str(), 1);
    ::unsetenv("XDG_CURRENT_DESKTOP");
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
  }

  [[nodiscard]] std::filesystem::path applications() const {
    return folder() / "data" / "applications";
  }
  [[nodiscard]] std::filesystem::path userApplications() const {
    return folder() / "home" / "applications";
  }
  /// Where a started program writes its name and its arguments.
  [[nodiscard]] std::filesystem::path report() const { return folder() / "report"; }

  /// A program that does `work` and then writes its name and its arguments, one a line.
  std::string program(const std::string& name, const std::string& work = {}) {
    const auto file = folder() / "bin" / name;
    const std::string draft = report().string() + ".draft";
    put(file, "#!/bin/sh\n" + work + "\nprintf '%s\\n' " + name + " \"$@\" > '" + draft +
                  "'\nmv '" + draft + "' '" + report().string() + "'\n");
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file.string();
  }

  /// A desktop entry with that command line and further keys.
  static void entry(const std::filesystem::path& file, const std::string& exec,
                    const std::string& more = {}) {
    put(file, "[Desktop Entry]\nType=Application\nName=Viewer\nExec=" + exec + "\n" + more);
  }

  /// Registers a program for help files, as its package does.
  void registerViewer(const std::string& work = {}) {
    registerCommand(program("viewer", work) + " %f");
  }
  /// The same for a command line, with further keys for its desktop entry.
  void registerCommand(const std::string& exec, const std::string& more = {}) const {
    entry(applications() / "viewer.desktop", exec, more);
    put(applications() / "mimeinfo.cache",
        "[MIME Cache]\napplication/vnd.ms-htmlhelp=viewer.desktop;\n");
  }

  /// The result of `action` in a new process, 0 to 254, as the user with that number where it is
  /// not 0.
  static int inNewProcess(const std::function<int()>& action, ::uid_t user = 0) {
    constexpr int notAllowed = 255;
    const ::pid_t child = ::fork();
    if (child == 0) {
      const bool isUser =
          user == 0 || ::geteuid() != 0 || (::setgid(user) == 0 && ::setuid(user) == 0);
      ::_exit(isUser ? action() : notAllowed);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WEXITSTATUS(status);
  }

  /// What the started program wrote; waits for it.
  [[nodiscard]] std::string reported() const {
    constexpr std::chrono::seconds patience(30);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!std::filesystem::exists(report()) && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return bytesOf(report());
  }
};

}  // namespace tessara::testing
