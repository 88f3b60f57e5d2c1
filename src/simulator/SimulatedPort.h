#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "simulator/Fault.h"
#include "simulator/LinePort.h"
#include "simulator/ModbusBus.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

/// A serial port that exists while the object does, with simulated Modbus modules on its line.
///
/// The port runs on a thread of its own; every function may be called from any thread.
class SimulatedPort {
 public:
  /// Plugs in a port with these modules on it. Throws std::invalid_argument if the modules cannot
  /// share a line, and std::system_error if the system has no port left.
  explicit SimulatedPort(std::vector<SimulatedModule> modules, SimulatedPortOptions options = {});
  explicit SimulatedPort(SimulatedModule module, SimulatedPortOptions options = {});

  /// As those of LinePort.
  [[nodiscard]] std::string device() const { return port_.device(); }
  void unplug() { port_.unplug(); }
  void plug() { port_.plug(); }

  /// Replaces the faults of the module at this address; its requests are counted from 1 again.
  /// Throws std::out_of_range if there is no such module, std::invalid_argument if a fault is
  /// invalid.
  void setFaults(std::uint8_t address, std::vector<Fault> faults);

  /// The same for each module on the line.
  void setFaults(const std::vector<Fault>& faults);

  /// Sets an input register of the module at this address, and adds it if it is missing.
  /// Throws std::out_of_range if there is no such module.
  void setRegister(std::uint8_t address, std::uint16_t number, std::uint16_t word);

  /// The frames seen so far.
  [[nodiscard]] LineCounters counters() const;

  /// The latest intact requests, oldest first, at most ModbusBus::maxLogged.
  [[nodiscard]] std::vector<SeenRequest> log() const;

 private:
  SimulatedPort(std::unique_ptr<ModbusBus> bus, SimulatedPortOptions options);

  ModbusBus& bus_;  // on the port's line, and accessed only there
  LinePort port_;
};

}  // namespace tessara
