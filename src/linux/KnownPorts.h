#pragma once

#include <memory>
#include <vector>

#include "drivers/PortDirectory.h"
#include "linux/PortSource.h"

namespace tessara {

/// All ports of this system, from several sources in order. A number that two sources claim belongs
/// to the first of them. So does a device node; the driver and USB device that the later source
/// knows for it are added to the port of the first.
class KnownPorts final : public PortSource, public PortDirectory {
 public:
  /// Adds a source after the existing ones; it must outlive this object.
  void add(const PortSource& source) { sources_.push_back(&source); }

  [[nodiscard]] std::vector<KnownPort> ports() const override;
  [[nodiscard]] std::optional<std::string> deviceOf(std::int16_t comPort) const override;

 private:
  std::vector<const PortSource*> sources_;
};

}  // namespace tessara
