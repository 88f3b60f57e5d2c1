#pragma once

#include <optional>
#include <string>

#include <termios.h>

#include "serial/linux/FileDescriptor.h"

namespace tessara {

/// Whether the holder of a port marks it with TIOCEXCL, by which the kernel keeps everyone but root
/// from opening it.
enum class ExclusiveMark {
  Put,     ///< the mark goes with the last program that has the port open
  NotPut,  ///< the mark would outlive a program that is killed
};

/// An open serial port that is locked for one owner alone. A port marked by another program counts
/// as in use, for root too. Handed back at the end with the settings that it had; pending output is
/// dropped.
class PortHold {
 public:
  /// Opens `device` without waiting for a carrier, and locks it. Throws PortError. Without `mark` a
  /// pseudo-terminal is not marked, because the kernel keeps the mark until the other end closes;
  /// any other port is.
  explicit PortHold(const std::string& device, std::optional<ExclusiveMark> mark = std::nullopt);
  ~PortHold();
  PortHold(const PortHold&) = delete;
  PortHold& operator=(const PortHold&) = delete;

  /// The open, non-blocking descriptor.
  [[nodiscard]] int descriptor() const { return port_.number(); }

 private:
  FileDescriptor port_;
  ExclusiveMark mark_ = ExclusiveMark::Put;
  ::termios found_{};
};

}  // namespace tessara
