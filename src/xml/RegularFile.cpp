#include "xml/RegularFile.h"

#include <cerrno>
#include <ctime>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessara {
namespace {

std::int64_t nanoseconds(const timespec& time) {
  constexpr std::int64_t perSecond = 1'000'000'000;
  return std::int64_t{time.tv_sec} * perSecond + time.tv_nsec;
}

/// O_NONBLOCK, since opening a pipe would wait for its other end.
int openToRead(const std::string& path) {
  return path.find('\0') == std::string::npos
             ? ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)
             : -1;
}

}  // namespace

RegularFile::RegularFile(const std::string& path) : file_(openToRead(path)) {}

RegularFile::~RegularFile() {
  if (file_ >= 0) {
    ::close(file_);
  }
}

std::optional<FileIdentity> RegularFile::identity() const {
  struct stat status {};
  if (::fstat(file_, &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  return FileIdentity{status.st_dev, status.st_ino, status.st_size, nanoseconds(status.st_mtim)};
}

std::optional<std::string> RegularFile::content(std::size_t maxBytes) const {
  const auto before = identity();
  if (!before || static_cast<std::uint64_t>(before->size) > maxBytes) {
    return std::nullopt;
  }
  // One byte more shows that the file has grown.
  std::string bytes(static_cast<std::size_t>(before->size) + 1, '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t got =
        ::pread(file_, bytes.data() + filled, bytes.size() - filled, static_cast<off_t>(filled));
    if (got < 0 && errno == EINTR) {
      continue;
    }
    if (got < 0) {
      return std::nullopt;
    }
    if (got == 0) {
      break;
    }
    filled += static_cast<std::size_t>(got);
  }
  bytes.resize(filled);
  return bytes;
}

bool wouldShowChange(const FileIdentity& identity) {
  timespec now{};
  return ::clock_gettime(CLOCK_REALTIME_COARSE, &now) == 0 && nanoseconds(now) > identity.modified;
}

}  // namespace tessara
