#include "platform/linux/KnownPorts.h"

#include <algorithm>

namespace tessara {

namespace {

auto findPort(const std::vector<KnownPort>& ports, std::int16_t comPort) {
  return std::find_if(ports.begin(), ports.end(),
                      [&](const KnownPort& port) { return port.comPort == comPort; });
}

}  // namespace

std::vector<KnownPort> KnownPorts::ports() const {
  std::vector<KnownPort> all;
  for (const PortSource* source : sources_) {
    for (KnownPort& port : source->ports()) {
      if (findPort(all, port.comPort) == all.end()) all.push_back(std::move(port));
    }
  }
  return all;
}

std::optional<std::string> KnownPorts::deviceOf(std::int16_t comPort) const {
  for (const PortSource* source : sources_) {
    const auto offered = source->ports();
    const auto port = findPort(offered, comPort);
    if (port != offered.end()) return port->deviceNode;
  }
  return std::nullopt;
}

}  // namespace tessara
