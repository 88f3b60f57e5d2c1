#include "simulator/Announcement.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iterator>
#include <limits>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "json/JsonReader.h"
#include "json/JsonText.h"
#include "serial/linux/FileDescriptor.h"

namespace tessara {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view filePrefix = "COM";
constexpr ::mode_t ownerOnly = 0700;

/// No other process changes the announcements while this object lives.
class FolderLock {
 public:
  explicit FolderLock(const fs::path& folder)
      : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!folder_.isOpen() || ::flock(folder_.number(), LOCK_EX) != 0) {
      throw std::system_error(errno, std::generic_category(), folder.string());
    }
  }

 private:
  FileDescriptor folder_;  // closing it releases the lock
};

/// True for a folder, not a link to one, that no other user can write to.
bool isOwnFolder(const fs::path& folder) {
  struct ::stat status {};
  return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

void makeOwnFolder(const fs::path& folder) {
  if (::mkdir(folder.c_str(), ownerOnly) != 0 && errno != EEXIST) {
    throw std::system_error(errno, std::generic_category(), folder.string());
  }
  if (!isOwnFolder(folder)) {
    throw std::system_error(EPERM, std::generic_category(),
                            folder.string() + " is not a folder that belongs to this user alone");
  }
}

std::optional<int> portNumber(const fs::path& file) {
  const std::string name = file.filename().string();
  if (!name.starts_with(filePrefix)) return std::nullopt;
  int number = 0;
  const auto* end = name.data() + name.size();
  const auto result = std::from_chars(name.data() + filePrefix.size(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

fs::path fileOf(const fs::path& folder, int number) {
  return folder / (std::string(filePrefix) + std::to_string(number));
}

bool isAlive(::pid_t process) {
  return ::kill(process, 0) == 0 || errno != ESRCH;
}

std::optional<RunningPort> readPort(const fs::path& file) {
  const auto number = portNumber(file);
  std::error_code ignored;
  if (!number || !fs::is_regular_file(file, ignored)) return std::nullopt;
  try {
    std::ifstream stream(file);
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    const JsonReader content = JsonReader::parse(text);
    const auto process = content["pid"].signedNumber(1, std::numeric_limits<::pid_t>::max());
    return RunningPort{*number, content["device"].text(), content["name"].text(),
                       static_cast<::pid_t>(process)};
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

/// Every announcement in the folder, including those of ended processes.
std::vector<RunningPort> announcedPorts(const fs::path& folder) {
  std::vector<RunningPort> ports;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (auto port = readPort(entry->path())) ports.push_back(std::move(*port));
  }
  return ports;
}

/// Call it with the folder locked: otherwise the file may already belong to a new port.
void removeDeadPorts(const fs::path& folder) {
  for (const RunningPort& port : announcedPorts(folder)) {
    if (!isAlive(port.process)) ::unlink(fileOf(folder, port.number).c_str());
  }
}

/// Readers see the old contents or the new ones, never a part.
void writePort(const fs::path& folder, int number, const std::string& namePrefix,
               const std::string& device) {
  const fs::path file = fileOf(folder, number);
  const fs::path fresh = file.string() + ".new";
  std::ofstream stream(fresh);
  stream << JsonText::object({{"device", device},
                              {"name", namePrefix + std::to_string(number)},
                              {"pid", ::getpid()}})
                .text();
  stream.close();
  if (!stream) throw std::system_error(errno, std::generic_category(), fresh.string());
  fs::rename(fresh, file);
}

}  // namespace

fs::path announcementFolder() {
  const char* runtime = std::getenv("XDG_RUNTIME_DIR");
  if (runtime != nullptr && fs::path(runtime).is_absolute()) {
    return fs::path(runtime) / "tessara-conf" / "ports";
  }
  return fs::path("/tmp") / ("tessara-conf-" + std::to_string(::geteuid())) / "ports";
}

std::vector<RunningPort> runningPorts() {
  const fs::path folder = announcementFolder();
  if (!isOwnFolder(folder.parent_path()) || !isOwnFolder(folder)) return {};
  std::vector<RunningPort> ports = announcedPorts(folder);
  const auto isDead = [](const RunningPort& port) { return !isAlive(port.process); };
  if (std::ranges::any_of(ports, isDead)) {
    try {
      const FolderLock lock(folder);
      removeDeadPorts(folder);
    } catch (const std::system_error&) {
      // The next announcement tries again.
    }
  }
  std::erase_if(ports,
                [&isDead](const RunningPort& port) { return port.device.empty() || isDead(port); });
  std::ranges::sort(ports, {}, &RunningPort::number);
  return ports;
}

Announcement::Announcement(const std::string& device, std::string namePrefix)
    : folder_(announcementFolder()),
      namePrefix_(std::move(namePrefix)),
      number_(firstSimulatedPort) {
  makeOwnFolder(folder_.parent_path());
  makeOwnFolder(folder_);
  const FolderLock lock(folder_);
  removeDeadPorts(folder_);
  while (fs::exists(fs::symlink_status(fileOf(folder_, number_)))) ++number_;
  writePort(folder_, number_, namePrefix_, device);
}

Announcement::~Announcement() {
  ::unlink(fileOf(folder_, number_).c_str());
}

void Announcement::update(const std::string& device) const {
  writePort(folder_, number_, namePrefix_, device);
}

}  // namespace tessara
