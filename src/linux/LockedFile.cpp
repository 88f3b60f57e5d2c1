#include "linux/LockedFile.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string_view>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessara {

namespace fs = std::filesystem;

namespace {

constexpr mode_t newFileMode = 0666;
constexpr mode_t modeBits = 07777;

[[noreturn]] void raise(int number) {
  throw std::system_error(number, std::generic_category());
}

/// The file at the end of a chain of symbolic links, whether it exists or not.
fs::path targetOf(fs::path file) {
  constexpr int maxLinks = 40;
  for (int links = 0; fs::is_symlink(fs::symlink_status(file)); ++links) {
    if (links == maxLinks) raise(ELOOP);
    file = file.parent_path() / fs::read_symlink(file);
  }
  return file;
}

FileDescriptor openFile(const fs::path& file, int flags, mode_t mode) {
  FileDescriptor opened(::open(file.c_str(), flags | O_CLOEXEC, mode));
  if (!opened.isOpen()) raise(errno);
  return opened;
}

/// Writes a new file and waits until it is on the disk.
void writeThrough(const fs::path& file, std::string_view contents, mode_t mode) {
  const FileDescriptor target = openFile(file, O_WRONLY | O_CREAT | O_EXCL, mode);
  while (!contents.empty()) {
    const ssize_t written = ::write(target.number(), contents.data(), contents.size());
    if (written < 0 && errno != EINTR) raise(errno);
    contents.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
  }
  if (::fsync(target.number()) != 0) raise(errno);
}

/// Gives the new file the mode of the old and, if the user may do that, its owner.
void keepRights(const fs::path& file, const struct stat& before) {
  [[maybe_unused]] const int given = ::chown(file.c_str(), before.st_uid, before.st_gid);
  if (::chmod(file.c_str(), before.st_mode & modeBits) != 0) raise(errno);
}

}  // namespace

LockedFile::LockedFile(fs::path file) : file_(targetOf(std::move(file))) {
  fs::create_directories(file_.parent_path());
  lock_ = openFile(beside(".lock"), O_RDWR | O_CREAT, newFileMode);
  while (::flock(lock_.number(), LOCK_EX) != 0) {
    if (errno != EINTR) raise(errno);
  }
}

fs::path LockedFile::beside(const char* ending) const {
  return file_.parent_path() / ('.' + file_.filename().string() + ending);
}

void LockedFile::replace(const std::string& contents) {
  struct stat before {};
  const bool exists = ::stat(file_.c_str(), &before) == 0;
  if (exists && ::access(file_.c_str(), W_OK) != 0) raise(errno);
  const fs::path next = beside(".new");
  std::error_code ignored;
  fs::remove(next, ignored);  // left by a process that was killed
  try {
    writeThrough(next, contents, exists ? before.st_mode & modeBits : newFileMode);
    if (exists) keepRights(next, before);
    fs::rename(next, file_);
  } catch (const std::system_error&) {
    fs::remove(next, ignored);
    throw;
  }
}

}  // namespace tessara
