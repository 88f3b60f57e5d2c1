#pragma once

#include <filesystem>
#include <string>

#include "platform/FileSystem.h"

namespace tessara {

/// The file that a host means by `name`. Hosts and settings are written for more than one system,
/// so a backslash separates folders as a slash does; a file with a backslash in its own name cannot
/// be named.
std::filesystem::path pathOfHost(const std::u16string& name);

/// The folder of the file that this code runs from: that of the shared library, or else of the
/// program itself. It is found once, when that file is loaded; if the file is replaced, moved or
/// removed afterwards, the folder stays the same.
const std::filesystem::path& programFolder();

class LinuxFileSystem final : public FileSystem {
 public:
  [[nodiscard]] bool FileExists(const std::u16string& path) const override;
  [[nodiscard]] std::u16string BuildPath(const std::u16string& path,
                                         const std::u16string& name) const override;
};

}  // namespace tessara
