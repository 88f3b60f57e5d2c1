#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessara {

/// What stays the same as long as nobody writes to a file or puts another in its place.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;
  /// Time of the last modification, in nanoseconds since 1970.
  std::int64_t modified = 0;

  bool operator==(const FileIdentity&) const = default;
};

/// A file that is open for reading. Folders, pipes and devices are not opened.
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

/// True if a file that is written to from now on gets a later time than `identity` has. The
/// system's clock for files advances in steps of some milliseconds.
bool wouldShowChange(const FileIdentity& identity);

}  // namespace tessara
