#pragma once

#include <string>
#include <vector>

#include "drivers/TracedObject.h"

namespace tessara {

/// The calls to the communication objects in one read, and the cause if it fails.
class DeviceLog {
 public:
  /// With `prints` each call is printed on standard error when it returns.
  explicit DeviceLog(bool prints) : prints_(prints) {}

  void add(const DeviceCall& call);

  [[nodiscard]] const std::vector<DeviceCall>& calls() const { return calls_; }
  /// True once a connection has been made.
  [[nodiscard]] bool hasConnected() const { return hasConnected_; }
  /// The first error since the last connection was made; empty if there was none.
  [[nodiscard]] const std::string& error() const { return error_; }

 private:
  bool prints_;
  bool hasConnected_ = false;
  std::string error_;
  std::vector<DeviceCall> calls_;
};

}  // namespace tessara
