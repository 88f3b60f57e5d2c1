#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace tessara::testing {

/// A test with configuration folders of its own, the user's and a system-wide one, both empty.
class SettingsFolder : public ::testing::Test {
 protected:
  SettingsFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tessara-XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
    ::setenv("XDG_CONFIG_HOME", (folder_ / "user").c_str(), 1);
    ::setenv("XDG_CONFIG_DIRS", (folder_ / "system").c_str(), 1);
  }
  ~SettingsFolder() override { std::filesystem::remove_all(folder_); }

  [[nodiscard]] std::filesystem::path folder() const { return folder_; }
  [[nodiscard]] std::filesystem::path userFile() const {
    return folder_ / "user" / "Orvane" / "Tessara-Conf.ini";
  }
  [[nodiscard]] std::filesystem::path systemFile() const {
    return folder_ / "system" / "Orvane" / "Tessara-Conf.ini";
  }

  static void put(const std::filesystem::path& file, const std::string& bytes) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
  }
  static std::string bytesOf(const std::filesystem::path& file) {
    std::ostringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    return bytes.str();
  }

 private:
  std::filesystem::path folder_;
};

/// The message of the RunTimeError that `action` raises; empty if it raises none.
template <class Action>
std::string errorOf(Action action) {
  try {
    action();
    return {};
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace tessara::testing
