#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include <termios.h>

namespace tessara {

/// What stands between a program and a serial port. A technician acts differently on each.
enum class PortProblem {
  NotThere,      ///< no such device, or it has been unplugged
  InUse,         ///< another program, or another connection of this one, holds the port
  NoPermission,  ///< the user may not open the device
  Refused,       ///< anything else: no serial port, an impossible rate, no more descriptors
};

/// A port could not be taken. The message goes behind the name of the port:
/// "is in use by another program".
class PortError : public std::runtime_error {
 public:
  PortError(PortProblem problem, const std::string& message)
      : std::runtime_error(message), problem_(problem) {}

  /// The meaning of errno value `error` for somebody who wanted a serial port.
  static PortError fromErrno(int error);

  [[nodiscard]] PortProblem problem() const { return problem_; }

 private:
  PortProblem problem_;
};

/// Whether TIOCEXCL says something about a port. It is the mark by which programs that know nothing
/// of flock keep others out; root alone is let pass.
enum class ExclusiveMark {
  EndsWithHolder,  ///< whoever has left it there holds the port
  OutlivesHolder,  ///< it may be the mark of a program that was killed: neither looked at nor left
};

/// A serial port, opened and held for one owner alone as long as the object lives.
///
/// The port is taken before any of its settings is touched, so that a port in use by somebody else
/// is left in peace, and it is handed back with the settings that it had. Pending output is dropped
/// at the release, which therefore never waits for a line that does not move.
class PortLock {
 public:
  /// Opens `device` without waiting for a carrier, and locks it. Throws PortError. Without `mark` a
  /// pseudo-terminal counts as one whose mark outlives the holder, because the kernel keeps it
  /// until the other end closes; any other port loses it with the last program that has the port
  /// open.
  explicit PortLock(const std::string& device, std::optional<ExclusiveMark> mark = std::nullopt);
  ~PortLock();
  PortLock(const PortLock&) = delete;
  PortLock& operator=(const PortLock&) = delete;

  /// The open, non-blocking descriptor; it belongs to the lock.
  [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
  ExclusiveMark mark_ = ExclusiveMark::EndsWithHolder;
  ::termios found_{};
};

}  // namespace tessara
