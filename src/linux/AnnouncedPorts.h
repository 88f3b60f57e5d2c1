#pragma once

#include <vector>

#include "linux/PortSource.h"

namespace tessara {

/// The ports of simulators that this user has running.
class AnnouncedPorts final : public PortSource {
 public:
  [[nodiscard]] std::vector<KnownPort> ports() const override;
};

}  // namespace tessara
