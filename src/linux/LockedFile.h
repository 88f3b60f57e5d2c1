#pragma once

#include <filesystem>
#include <string>

#include "serial/linux/FileDescriptor.h"

namespace tessara {

/// A file that no other process or thread writes to while the object lives; they wait. Readers see
/// either the old contents or the new. A process that dies releases its lock. The folder of the
/// file is made if it is missing.
///
/// Beside the file lie .<name>.lock, which stays, and, while the file is written, .<name>.new.
class LockedFile {
 public:
  /// A symbolic link stands for the file behind it. Throws std::system_error.
  explicit LockedFile(std::filesystem::path file);

  /// Replaces the contents in one step, once the new ones are on the disk. The mode stays. Throws
  /// std::system_error; the file then is as it was.
  void replace(const std::string& contents);

 private:
  [[nodiscard]] std::filesystem::path beside(const char* ending) const;

  std::filesystem::path file_;
  FileDescriptor lock_;
};

}  // namespace tessara
