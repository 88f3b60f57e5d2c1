#include "linux/SimulatedKnownPort.h"

#include "simulator/PluggableModule.h"

namespace tessara {

namespace {

constexpr std::uint16_t twn4Vendor = 0x09D8;
constexpr std::uint16_t twn4Product = 0x0420;

}  // namespace

KnownPort simulatedKnownPort(std::int16_t comPort, const std::string& deviceName,
                             const std::string& deviceNode) {
  KnownPort port{comPort, deviceName, deviceNode};
  if (deviceName.starts_with(twn4Prefix)) {
    port.usb = UsbIdentity{twn4Vendor, twn4Product, "SIM" + std::to_string(comPort)};
  }
  return port;
}

}  // namespace tessara
