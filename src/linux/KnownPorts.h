#pragma once

#include <memory>
#include <vector>

#include "drivers/PortDirectory.h"
#include "linux/PortSource.h"

namespace tessara {

/// All ports of this system: those of several sources, one source after the other. A number that
/// two sources claim belongs to the first of them, and so does a device node: what the later one
/// knows of the driver and the USB device behind it goes to the ports of the first.
class KnownPorts final : public PortSource, public PortDirectory {
 public:
  /// Asks `source` after those that are there already; it has to outlive this object.
  void add(const PortSource& source) { sources_.push_back(&source); }

  [[nodiscard]] std::vector<KnownPort> ports() const override;
  [[nodiscard]] std::optional<std::string> deviceOf(std::int16_t comPort) const override;

 private:
  std::vector<const PortSource*> sources_;
};

}  // namespace tessara
