#pragma once

#include <memory>
#include <string>

namespace tessara {

/// Holds a device that other programs could open at the same time, for as long as the object lives.
/// It keeps out those programs only that lock the device too.
class DeviceLock {
 public:
  /// Throws PortError.
  explicit DeviceLock(const std::string& device);
  ~DeviceLock();
  DeviceLock(const DeviceLock&) = delete;
  DeviceLock& operator=(const DeviceLock&) = delete;

 private:
  struct System;
  std::unique_ptr<System> system_;
};

}  // namespace tessara
