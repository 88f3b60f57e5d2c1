#pragma once

#include <chrono>
#include <thread>

#include "SettingsFolder.h"

namespace tessara::testing {

/// A desktop of its own, on which only those programs are registered that a test registers.
class Programs : public SettingsFolder {
 protected:
  Programs() {
    const auto data = folder() / "data";
    std::filesystem::create_directories(data / "applications");
    std::filesystem::create_directory_symlink("/usr/share/mime", data / "mime");
    ::setenv("XDG_DATA_HOME", (folder() / "home").c_str(), 1);
    ::setenv("XDG_DATA_DIRS", data.c_str(), 1);
    ::unsetenv("XDG_CURRENT_DESKTOP");
  }

  [[nodiscard]] std::filesystem::path applications() const {
    return folder() / "data" / "applications";
  }
  [[nodiscard]] std::filesystem::path userApplications() const {
    return folder() / "home" / "applications";
  }
  /// Where the programs that were started write down what they were started with.
  [[nodiscard]] std::filesystem::path report() const { return folder() / "report"; }

  /// A program that does `work` and writes down its arguments, one a line.
  std::string program(const std::string& name, const std::string& work = {}) {
    const auto file = folder() / "bin" / name;
    const std::string draft = report().string() + ".draft";
    put(file, "#!/bin/sh\n" + work + "\nprintf '%s\\n' " + name + " \"$@\" > '" + draft +
                  "'\nmv '" + draft + "' '" + report().string() + "'\n");
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file.string();
  }

  /// A desktop entry with that command line and more keys.
  static void entry(const std::filesystem::path& file, const std::string& exec,
                    const std::string& more = {}) {
    put(file, "[Desktop Entry]\nType=Application\nName=Viewer\nExec=" + exec + "\n" + more);
  }

  /// Registers a program for help files, as its package does.
  void registerViewer(const std::string& work = {}) {
    entry(applications() / "viewer.desktop", program("viewer", work) + " %f");
    put(applications() / "mimeinfo.cache",
        "[MIME Cache]\napplication/vnd.ms-htmlhelp=viewer.desktop;\n");
  }

  /// What the started program wrote down; waits for it.
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
