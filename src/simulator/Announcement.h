#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tessara {

/// A simulated port that a process offers to all programs of the same user.
struct RunningPort {
  int number = 0;       ///< COM<number>, 100 and up
  std::string device;   ///< the device node, "/dev/pts/5"
  std::string name;     ///< the device name of the port list, "\Device\Silabser100"
  ::pid_t process = 0;  ///< the process that offers it
};

/// Lowest number of a simulated port; those below belong to real ones.
inline constexpr int firstSimulatedPort = 100;

/// What the device names of serial adapters that lead to Modbus modules begin with.
inline constexpr const char* serialAdapterPrefix = "\\Device\\Silabser";

/// The simulated ports available now, by number: announced by a running process, and plugged in.
/// Entries of processes that have ended are removed. Never fails: what cannot be read does not
/// count as a port.
std::vector<RunningPort> runningPorts();

/// The folder of the announcements: tessara-conf/ports in XDG_RUNTIME_DIR, or, if that is not set,
/// in a private folder of this user in /tmp.
std::filesystem::path announcementFolder();

/// The public announcement of a simulated port, from construction to destruction: one small file,
/// COM<n>, that holds the port as JSON: "device", "name" and "pid".
class Announcement {
 public:
  /// Takes the lowest free number for a port with this device node; an empty one stands for a port
  /// that is unplugged. `namePrefix` precedes the number in the device name of the port list and
  /// identifies the kind of adapter. Throws std::system_error or
  /// std::filesystem::filesystem_error if the folder cannot be used or is not private to this
  /// user.
  explicit Announcement(const std::string& device, std::string namePrefix = serialAdapterPrefix);
  ~Announcement();
  Announcement(const Announcement&) = delete;
  Announcement& operator=(const Announcement&) = delete;

  /// The number after COM. It never changes.
  [[nodiscard]] int number() const { return number_; }

  /// Announces another device node under the same number; an empty one means unplugged.
  void update(const std::string& device) const;

 private:
  std::filesystem::path folder_;
  std::string namePrefix_;
  int number_;
};

}  // namespace tessara
