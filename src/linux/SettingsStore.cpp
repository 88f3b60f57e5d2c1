#include "linux/SettingsStore.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "base/RunTimeError.h"
#include "linux/LockedFile.h"
#include "linux/SettingsFile.h"
#include "linux/SettingsFormat.h"
#include "linux/SettingsPaths.h"
#include "linux/SettingsValue.h"

namespace tessara {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path& path, const std::string& what) {
  throw RunTimeError(ErrorNumber::FileAccess, "The settings file " + path.string() + ' ' + what);
}

[[noreturn]] void failReading(const fs::path& path, const std::string& cause) {
  fail(path, "cannot be read: " + cause);
}

/// Everything in the file; nothing if there is no such file.
std::optional<std::string> contentsOf(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (status.type() == fs::file_type::not_found) return std::nullopt;
  if (error) failReading(path, error.message());
  if (!fs::is_regular_file(status)) failReading(path, "it is not a regular file");
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  std::string contents{std::istreambuf_iterator<char>(file), {}};
  if (!file.is_open() || file.bad()) failReading(path, std::generic_category().message(errno));
  return contents;
}

SettingsFile parsed(const fs::path& path, std::string_view contents) {
  try {
    return SettingsFile(contents);
  } catch (const std::runtime_error& error) {
    failReading(path, error.what());
  }
}

/// One of the files, with its contents.
struct LoadedFile {
  fs::path path;
  SettingsFile file;
};

/// The files that exist, the user's first.
std::vector<LoadedFile> loadFiles() {
  std::vector<LoadedFile> files;
  for (const fs::path& path : settingsPaths()) {
    if (const auto contents = contentsOf(path)) files.push_back({path, parsed(path, *contents)});
  }
  return files;
}

/// The text of a value that is there.
std::string textOf(const fs::path& path, const std::string& name, const std::string& raw) {
  try {
    return decodedValue(raw);
  } catch (const RunTimeError& error) {
    throw RunTimeError(error.number(),
                       "The setting " + name + " in " + path.string() + ": " + error.what());
  }
}

/// Changes the user's file while nobody else writes to it.
void change(const std::function<void(SettingsFile&)>& edit) {
  const fs::path path = settingsPaths().front();
  try {
    LockedFile target(path);
    SettingsFile file = parsed(path, contentsOf(path).value_or(""));
    edit(file);
    target.replace(file.contents());
  } catch (const std::system_error& error) {
    fail(path, "cannot be written: " + error.code().message());
  }
}

}  // namespace

std::optional<std::string> SettingsStore::value(const std::string& name) const {
  for (const auto& [path, file] : loadFiles()) {
    if (file.contains(name)) return textOf(path, name, file.value(name));
  }
  return std::nullopt;
}

SettingsGroup SettingsStore::group(const std::string& group) const {
  SettingsGroup found;
  const std::string prefix = group + '/';
  for (const auto& [path, file] : loadFiles()) {
    for (const auto& [name, raw] : file.values()) {
      const std::string own = name.substr(std::min(prefix.size(), name.size()));
      const bool isHidden = found.values.contains(own) || found.unusable.contains(own);
      if (!name.starts_with(prefix) || isHidden) continue;
      try {
        found.values[own] = textOf(path, name, raw);
      } catch (const RunTimeError& error) {
        found.unusable[own] = error.what();
      }
    }
    for (const std::string& line : file.skippedLines()) {
      if (group == portsGroup) found.skippedLines.push_back(path.string() + ", " + line);
    }
  }
  return found;
}

void SettingsStore::setValue(const std::string& name, const std::string& text) {
  static_cast<void>(loadFiles());  // none of them may be broken
  change([&](SettingsFile& file) { file.set(name, encodedValue(text, file.value(name))); });
}

void SettingsStore::remove(const std::string& name) {
  for (const auto& [path, file] : loadFiles()) {
    if (path == settingsPaths().front() && file.contains(name)) {
      change([&](SettingsFile& current) { current.remove(name); });
    }
  }
}

std::string SettingsStore::path() const {
  return settingsPaths().front().string();
}

}  // namespace tessara
