#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <system_error>

namespace tessara::testing {

/// The names of everything in a folder.
inline std::set<std::string> namesIn(const std::filesystem::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

/// A private folder of one test, removed with the object.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "simulator-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
      throw std::system_error(errno, std::generic_category(), name);
    }
    path_ = name;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  std::filesystem::path write(const std::string& name, const std::string& text) const {
    std::ofstream(path_ / name) << text;
    return path_ / name;
  }

  [[nodiscard]] std::string read(const std::string& name) const {
    std::ifstream stream(path_ / name);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  [[nodiscard]] std::set<std::string> names() const { return namesIn(path_); }

 private:
  std::filesystem::path path_;
};

}  // namespace tessara::testing
