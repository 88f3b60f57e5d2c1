#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "WireTime.h"

namespace tessara::bench {

/// A whole control on a paced simulated module, on any path.
class ControlRead {
 public:
  /// `moduleFile` is the name of a sample module. Throws ModuleFileError if there is none.
  explicit ControlRead(const std::string& moduleFile);
  ~ControlRead();
  ControlRead(const ControlRead&) = delete;
  ControlRead& operator=(const ControlRead&) = delete;

  [[nodiscard]] std::string device() const;

  /// One read from the press of the button to the filled panel. Throws std::runtime_error if the
  /// read fails.
  Seconds read(int rate);

 private:
  struct World;
  std::unique_ptr<World> world_;
};

}  // namespace tessara::bench
