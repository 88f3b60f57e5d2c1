#pragma once

#include <functional>
#include <vector>

#include "linux/PortSource.h"
#include "linux/ports/PortNumbers.h"
#include "linux/ports/SerialDevice.h"

namespace tessara {

/// The serial ports that the system has discovered, in the order of their COM numbers. A port whose
/// device node is missing, and a UART without hardware, are left out.
class SerialPorts final : public PortSource {
 public:
  /// Somebody who knows the devices, or says that he cannot tell.
  using Layer = std::function<FoundDevices()>;

  /// Both have to outlive this object. The numbers of the ports in `claimed` are left to them.
  /// Of the layers the first that can tell is heard.
  SerialPorts(PortNumbers& numbers, const PortSource& claimed,
              std::vector<Layer> layers = {udevDevices, [] { return sysfsDevices(); }});

  /// Throws a RunTimeError if the memory of the numbers cannot be read.
  [[nodiscard]] std::vector<KnownPort> ports() const override;

 private:
  [[nodiscard]] std::vector<SerialDevice> usableDevices() const;

  PortNumbers& numbers_;
  const PortSource& claimed_;
  std::vector<Layer> layers_;
};

}  // namespace tessara
