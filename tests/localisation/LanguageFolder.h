#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "base/Text.h"
#include "localisation/Language.h"
#include "localisation/ScriptedLocale.h"

namespace tessara::testing {

/// Queries about the files of the real file system.
class DiskFileSystem : public FileSystem {
 public:
  [[nodiscard]] bool FileExists(const std::u16string& path) const override {
    return std::filesystem::is_regular_file(toUtf8(path));
  }
  [[nodiscard]] std::u16string BuildPath(const std::u16string& path,
                                         const std::u16string& name) const override {
    return path + u"/" + name;
  }
};

/// A folder of language files for one test, and the state that a load fills.
class LanguageFolder : public ::testing::Test {
 protected:
  ~LanguageFolder() override { std::filesystem::remove_all(folder_); }

  void write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }

  bool load(std::int16_t language) {
    return LoadLanguageFile(fromUtf8(folder_.string()), language, DiskFileSystem(), locale, state);
  }

  [[nodiscard]] const std::filesystem::path& folder() const { return folder_; }

  ScriptedLocale locale;
  LanguageState state;

 private:
  static std::filesystem::path makeFolder() {
    auto name = (std::filesystem::temp_directory_path() / "tessara-language-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
      throw std::runtime_error("no folder for the test at " + name);
    }
    return name;
  }

  std::filesystem::path folder_ = makeFolder();
};

}  // namespace tessara::testing
