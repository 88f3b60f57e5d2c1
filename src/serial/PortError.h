#pragma once

#include <stdexcept>
#include <string>

namespace tessara {

/// Why a port could not be opened. A technician acts differently on each.
enum class PortProblem {
  NotThere,      ///< no such device, or it has been unplugged
  InUse,         ///< another program, or another connection of this one, holds the port
  NoPermission,  ///< the user may not open the device
  Refused,       ///< anything else: not a serial port, an impossible rate, too many open files
};

/// A port could not be opened. The message completes a sentence that begins with the name of the
/// port: "is in use by another program".
class PortError : public std::runtime_error {
 public:
  PortError(PortProblem problem, const std::string& message)
      : std::runtime_error(message), problem_(problem) {}

  static PortError notThere() { return {PortProblem::NotThere, "is not there"}; }
  static PortError inUse() { return {PortProblem::InUse, "is in use by another program"}; }
  static PortError noPermission() {
    return {PortProblem::NoPermission, "cannot be opened: no permission"};
  }
  static PortError notASerialPort() { return {PortProblem::Refused, "is not a serial port"}; }
  /// `cause` is what the system says: "Too many open files".
  static PortError refused(const std::string& cause) {
    return {PortProblem::Refused, "cannot be opened: " + cause};
  }

  [[nodiscard]] PortProblem problem() const { return problem_; }

 private:
  PortProblem problem_;
};

}  // namespace tessara
