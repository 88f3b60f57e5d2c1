#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace tessara {

/// Changes when a file is written to or replaced by another one.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;
  /// Time of the last modification, in nanoseconds since 1970.
  std::int64_t modified = 0;

  bool operator==(const FileIdentity&) const = default;
};

/// A file that is open for reading. Only regular files can be read, not folders, pipes or devices.
class RegularFile {
 public:
  /// `path` in UTF-8.
  explicit RegularFile(const std::string& path);
  RegularFile(const RegularFile&) = delete;
  RegularFile& operator=(const RegularFile&) = delete;
  ~RegularFile();

  /// Nothing if the file is missing, unreadable or not a regular one.
  [[nodiscard]] std::optional<FileIdentity> identity() const;

  /// All bytes; nothing if they cannot be read or are more than `maxBytes`.
  [[nodiscard]] std::optional<std::string> content(std::size_t maxBytes) const;

 private:
  int file_ = -1;
};

/// True if writing to the file from now on would give it a later time than `identity` has. The
/// clock for file times advances in steps of a few milliseconds.
bool wouldShowChange(const FileIdentity& identity);

}  // namespace tessara
