#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "WireTime.h"
#include "simulator/SimulatedPort.h"

namespace tessara::bench {

/// A whole control on a paced simulated module.
class ControlRead {
 public:
  explicit ControlRead(const ModuleOnLine& module);
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
