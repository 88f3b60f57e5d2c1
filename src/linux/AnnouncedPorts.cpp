#include "linux/AnnouncedPorts.h"

#include "linux/SimulatedKnownPort.h"
#include "simulator/Announcement.h"

namespace tessara {

std::vector<KnownPort> AnnouncedPorts::ports() const {
  std::vector<KnownPort> ports;
  for (const RunningPort& port : runningPorts()) {
    ports.push_back(
        simulatedKnownPort(static_cast<std::int16_t>(port.number), port.name, port.device));
  }
  return ports;
}

}  // namespace tessara
