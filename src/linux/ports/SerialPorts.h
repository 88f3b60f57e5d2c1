#pragma once

#include <functional>
#include <vector>

#include "linux/PortSource.h"
#include "linux/ports/PortNumbers.h"
#include "linux/ports/SerialDevice.h"

namespace tessara {

/// The serial ports that the system has discovered, in the order of their COM numbers. Ports whose
/// device node is missing and UARTs without hardware are left out.
class SerialPorts final : public PortSource {
 public:
  /// A source of devices; it returns nothing if it is not available.
  using Layer = std::function<FoundDevices()>;

  /// `numbers` and `claimed` must outlive this object. Numbers of ports in `claimed` are not given
  /// to devices. The first layer that is available is used.
  SerialPorts(PortNumbers& numbers, const PortSource& claimed,
              std::vector<Layer> layers = {udevDevices, [] { return sysfsDevices(); }});

  /// Throws a RunTimeError if the record of the numbers cannot be read.
  [[nodiscard]] std::vector<KnownPort> ports() const override;

 private:
  [[nodiscard]] std::vector<SerialDevice> usableDevices() const;

  PortNumbers& numbers_;
  const PortSource& claimed_;
  std::vector<Layer> layers_;
};

}  // namespace tessara
