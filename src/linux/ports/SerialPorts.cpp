#include "linux/ports/SerialPorts.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

#include <unistd.h>

#include "linux/ports/DeviceNames.h"
#include "linux/ports/NumberAssignment.h"

namespace tessara {
namespace {

bool isUsable(const SerialDevice& device) {
  return ::access(device.node.c_str(), F_OK) == 0 && !isPhantomUart(device);
}

/// ttyUSB2 comes before ttyUSB10.
bool comesBefore(const SerialDevice& left, const SerialDevice& right) {
  const auto order = [](const SerialDevice& device) {
    return std::tuple(terminalKind(device.name), device.name.size(), std::string_view(device.name));
  };
  return order(left) < order(right);
}

std::set<std::int16_t> numbersOf(const std::vector<KnownPort>& ports) {
  std::set<std::int16_t> numbers;
  for (const KnownPort& port : ports) {
    numbers.insert(port.comPort);
  }
  return numbers;
}

}  // namespace

SerialPorts::SerialPorts(PortNumbers& numbers, const PortSource& claimed, std::vector<Layer> layers)
    : numbers_(numbers), claimed_(claimed), layers_(std::move(layers)) {}

std::vector<SerialDevice> SerialPorts::usableDevices() const {
  for (const Layer& layer : layers_) {
    if (FoundDevices found = layer()) {
      std::erase_if(*found, [](const SerialDevice& device) { return !isUsable(device); });
      std::sort(found->begin(), found->end(), comesBefore);
      return *std::move(found);
    }
  }
  return {};
}

std::vector<KnownPort> SerialPorts::ports() const {
  const std::vector<SerialDevice> devices = usableDevices();
  const auto numbers = assignNumbers(devices, numbersOf(claimed_.ports()), numbers_);
  std::vector<KnownPort> ports;
  for (std::size_t i = 0; i < devices.size(); ++i) {
    const SerialDevice& device = devices[i];
    if (numbers[i] != 0) {
      ports.push_back({numbers[i], deviceNameOf(device), device.node, device.driver, device.usb});
    }
  }
  std::sort(ports.begin(), ports.end(), [](const KnownPort& left, const KnownPort& right) {
    return left.comPort < right.comPort;
  });
  return ports;
}

}  // namespace tessara
