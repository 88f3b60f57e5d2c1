#include "linux/KnownPorts.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace tessara {

namespace {

auto findPort(const std::vector<KnownPort>& ports, std::int16_t comPort) {
  return std::find_if(ports.begin(), ports.end(),
                      [&](const KnownPort& port) { return port.comPort == comPort; });
}

/// True if both paths lead to the same device, through links or directly.
bool isSameNode(const std::string& left, const std::string& right) {
  std::error_code error;
  return !left.empty() && (left == right || std::filesystem::equivalent(left, right, error));
}

/// Adds what is known of the device node of `port` to the earlier ports at that node. Returns false
/// if there are none.
bool completeEarlier(const KnownPort& port, std::vector<KnownPort>& earlier) {
  bool isThere = false;
  for (KnownPort& known : earlier) {
    if (!isSameNode(known.deviceNode, port.deviceNode)) continue;
    if (known.driver.empty()) known.driver = port.driver;
    if (!known.usb) known.usb = port.usb;
    isThere = true;
  }
  return isThere;
}

}  // namespace

std::vector<KnownPort> KnownPorts::ports() const {
  std::vector<KnownPort> all;
  for (const PortSource* source : sources_) {
    auto offered = source->ports();
    std::erase_if(offered, [&](const KnownPort& port) {
      return completeEarlier(port, all) || findPort(all, port.comPort) != all.end();
    });
    std::move(offered.begin(), offered.end(), std::back_inserter(all));
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
