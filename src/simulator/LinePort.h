#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "simulator/SimulatedLine.h"

namespace tessara {

class PortLoop;

/// How a simulated port behaves as a port.
struct SimulatedPortOptions {
  /// Bytes take the time that they need on a wire: a request has arrived when its characters would
  /// have come at the rate that the client has set, the answer begins 3.5 characters later and
  /// arrives at that rate. Otherwise answers come at once.
  bool paced = false;

  /// If not empty, a symbolic link to the device node that exists while the port is plugged in and
  /// keeps its name through replugging. An existing link is replaced.
  std::filesystem::path link{};

  /// Called with the new device node, or an empty path on unplugging, whenever the port goes away
  /// or comes back. Runs on the port's own thread, from which all functions of the port may be
  /// called. It must not throw or destroy the port.
  std::function<void(const std::filesystem::path& device)> deviceChanged{};
};

/// A serial port that exists while the object does, with a simulated line behind it.
///
/// The port runs on a thread of its own; every function may be called from any thread.
class LinePort {
 public:
  /// Plugs the port in. Throws std::system_error if the system has no port left.
  explicit LinePort(std::unique_ptr<SimulatedLine> line, SimulatedPortOptions options = {});

  /// Unplugs the port.
  ~LinePort();
  LinePort(const LinePort&) = delete;
  LinePort& operator=(const LinePort&) = delete;

  /// What a client opens: the link if there is one, else the device node, "/dev/pts/5". Empty while
  /// the port is unplugged.
  [[nodiscard]] std::string device() const;

  /// Pulls the port out: the device node and the link are gone, and clients that hold the port get
  /// end of file and EIO. Answers still being sent are lost. No effect if unplugged.
  void unplug();

  /// Puts the port back, under a new device node. No effect if plugged in. Throws
  /// std::system_error if the system has no port left.
  void plug();

  /// Runs `action`, which accesses the line, on the line's thread and waits for it; throws what it
  /// throws.
  void onLine(const std::function<void()>& action) const;

 private:
  std::unique_ptr<PortLoop> loop_;
  std::thread thread_;
};

}  // namespace tessara
