#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tessara {

/// A simulated port that some process offers to all programs of this user.
struct RunningPort {
  int number = 0;       ///< COM<number>, 100 and up
  std::string device;   ///< the device node, "/dev/pts/5"
  std::string name;     ///< the device name of the port list, "\Device\Silabser100"
  ::pid_t process = 0;  ///< who offers it
};

/// Lowest number of a simulated port; those below belong to real ones.
inline constexpr int firstSimulatedPort = 100;

/// How the device names of serial adapters begin that lead to Modbus modules.
inline constexpr const char* serialAdapterPrefix = "\\Device\\Silabser";

/// The simulated ports that are to be had now, by number: announced by a process that lives, and
/// plugged in. Entries that processes have left behind are removed on the way. Never fails: what
/// cannot be read is no port.
std::vector<RunningPort> runningPorts();

/// The folder of the announcements: tessara-conf/ports in XDG_RUNTIME_DIR, or, if that is not set,
/// in a folder of this user's own in /tmp.
std::filesystem::path announcementFolder();

/// The public announcement of a simulated port, from construction to destruction. It is one small
/// file, COM<n>, that holds the port as JSON: "device", "name" and "pid".
class Announcement {
 public:
  /// Takes the lowest free number for a port with this device node; an empty one stands for a port
  /// that is unplugged. `namePrefix` stands before the number in the device name of the port list:
  /// it tells what kind of adapter the port is. Throws std::system_error or
  /// std::filesystem::filesystem_error if the folder cannot be had or does not belong to this user
  /// alone.
  explicit Announcement(const std::string& device, std::string namePrefix = serialAdapterPrefix);
  ~Announcement();
  Announcement(const Announcement&) = delete;
  Announcement& operator=(const Announcement&) = delete;

  /// The number behind COM. It stays the same as long as the object lives.
  [[nodiscard]] int number() const { return number_; }

  /// Announces another device node under the same number, or with none that the port is unplugged.
  void update(const std::string& device) const;

 private:
  std::filesystem::path folder_;
  std::string namePrefix_;
  int number_;
};

}  // namespace tessara
