#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessara {

/// A port that can be offered to a user, whoever found it. All texts are UTF-8.
struct KnownPort {
  /// The number of COM<comPort>, from 1 on.
  std::int16_t comPort = 0;
  /// The name by which the port list tells the kind of adapter: "\Device\Silabser0".
  std::string deviceName;
  /// Where it is opened: "/dev/ttyUSB0".
  std::string deviceNode;

  bool operator==(const KnownPort&) const = default;
};

/// Somebody who knows ports: the settings, a running simulator, the system's device discovery.
class PortSource {
 public:
  PortSource() = default;
  PortSource(const PortSource&) = delete;
  PortSource& operator=(const PortSource&) = delete;
  virtual ~PortSource() = default;

  /// The ports that this source knows at this moment, in the order in which they are to be offered.
  /// Asked anew each time, so that a port that came or went is seen.
  [[nodiscard]] virtual std::vector<KnownPort> ports() const = 0;
};

}  // namespace tessara
