#pragma once

#include <string>
#include <string_view>

namespace tessara {

/// Questions about files.
class FileSystem {
 public:
  FileSystem() = default;
  FileSystem(const FileSystem&) = delete;
  FileSystem& operator=(const FileSystem&) = delete;
  virtual ~FileSystem() = default;

  /// True if there is a file (not a folder, pipe or device) at that path. A path with a zero
  /// character names no file.
  [[nodiscard]] virtual bool FileExists(const std::u16string& path) const = 0;

  /// Folder and file name in one path, with a separator between them where one is needed.
  [[nodiscard]] virtual std::u16string BuildPath(const std::u16string& path,
                                                 const std::u16string& name) const = 0;
};

}  // namespace tessara
