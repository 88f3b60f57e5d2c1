#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "simulator/Fault.h"
#include "simulator/ModbusBus.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

class PortLoop;

/// How a simulated port behaves as a port.
struct SimulatedPortOptions {
  /// Bytes take their time: a request counts as come when its characters would have come over the
  /// wire at the rate that the client has set, the answer begins 3.5 characters later and arrives
  /// at that rate. Otherwise answers are there at once.
  bool paced = false;

  /// If not empty, a symbolic link that leads to the device node while the port is plugged in, and
  /// that stays the same over replugging. A link that is already there is replaced.
  std::filesystem::path link{};

  /// Told the new device node, or nothing on unplugging, whenever the port goes away or comes back.
  /// Runs on the port's own thread, from which all functions of the port may be called.
  std::function<void(const std::filesystem::path& device)> deviceChanged{};
};

/// A serial port that exists while the object does, with simulated modules on its line.
///
/// The port works on a thread of its own; every function may be called from any thread.
class SimulatedPort {
 public:
  /// Plugs in a port with these modules on it. Throws std::invalid_argument if the modules cannot
  /// stand on one line, and std::system_error if the system gives no port.
  explicit SimulatedPort(std::vector<SimulatedModule> modules, SimulatedPortOptions options = {});
  explicit SimulatedPort(SimulatedModule module, SimulatedPortOptions options = {});

  /// Unplugs.
  ~SimulatedPort();
  SimulatedPort(const SimulatedPort&) = delete;
  SimulatedPort& operator=(const SimulatedPort&) = delete;

  /// What a client opens: the link if there is one, else the device node, "/dev/pts/5". Empty while
  /// the port is unplugged.
  [[nodiscard]] std::string device() const;

  /// Pulls the port out: the device node and the link are gone, and clients that hold the port get
  /// end of file and EIO. Answers that are still under way are lost. No effect if unplugged.
  void unplug();

  /// Puts the port back, under a new device node. No effect if plugged in. Throws
  /// std::system_error if the system gives no port.
  void plug();

  /// Replaces the faults of the module at this address; its requests are counted from 1 again.
  /// Throws std::out_of_range if there is no such module, std::invalid_argument if a fault is
  /// impossible.
  void setFaults(std::uint8_t address, std::vector<Fault> faults);

  /// The same for each module on the line.
  void setFaults(const std::vector<Fault>& faults);

  /// Sets an input register of the module at this address; it may be one that the module had not.
  /// Throws std::out_of_range if there is no such module.
  void setRegister(std::uint8_t address, std::uint16_t number, std::uint16_t word);

  /// The frames seen so far.
  [[nodiscard]] LineCounters counters() const;

  /// The latest sound requests, oldest first, at most ModbusBus::kLogLimit.
  [[nodiscard]] std::vector<SeenRequest> log() const;

 private:
  template <typename Action>
  auto onLine(Action action) const;

  std::unique_ptr<PortLoop> loop_;
  std::thread thread_;
};

}  // namespace tessara
