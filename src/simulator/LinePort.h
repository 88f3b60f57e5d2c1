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
  /// Bytes take their time: a request counts as come when its characters would have come over the
  /// wire at the rate that the client has set, the answer begins 3.5 characters later and arrives
  /// at that rate. Otherwise answers are there at once.
  bool paced = false;

  /// If not empty, a symbolic link that leads to the device node while the port is plugged in, and
  /// that stays the same over replugging. A link that is already there is replaced.
  std::filesystem::path link{};

  /// Told the new device node, or nothing on unplugging, whenever the port goes away or comes back.
  /// Runs on the port's own thread, from which all functions of the port may be called. It must not
  /// throw, nor end the port.
  std::function<void(const std::filesystem::path& device)> deviceChanged{};
};

/// A serial port that exists while the object does, with a simulated line behind it.
///
/// The port works on a thread of its own; every function may be called from any thread.
class LinePort {
 public:
  /// Plugs in. Throws std::system_error if the system gives no port.
  explicit LinePort(std::unique_ptr<SimulatedLine> line, SimulatedPortOptions options = {});

  /// Unplugs.
  ~LinePort();
  LinePort(const LinePort&) = delete;
  LinePort& operator=(const LinePort&) = delete;

  /// What a client opens: the link if there is one, else the device node, "/dev/pts/5". Empty while
  /// the port is unplugged.
  [[nodiscard]] std::string device() const;

  /// Pulls the port out: the device node and the link are gone, and clients that hold the port get
  /// end of file and EIO. Answers that are still under way are lost. No effect if unplugged.
  void unplug();

  /// Puts the port back, under a new device node. No effect if plugged in. Throws
  /// std::system_error if the system gives no port.
  void plug();

  /// Has `action`, which touches the line, run by the thread that the line belongs to; returns when
  /// it has, and throws what it throws.
  void onLine(const std::function<void()>& action) const;

 private:
  std::unique_ptr<PortLoop> loop_;
  std::thread thread_;
};

}  // namespace tessara
