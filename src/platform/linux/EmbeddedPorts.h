#pragma once

#include <utility>
#include <vector>

#include "platform/linux/PortSource.h"

namespace tessara {

/// Ports that the program itself brings along, as those of a simulator that runs inside it.
class EmbeddedPorts final : public PortSource {
 public:
  void add(KnownPort port) { ports_.push_back(std::move(port)); }

  [[nodiscard]] std::vector<KnownPort> ports() const override { return ports_; }

 private:
  std::vector<KnownPort> ports_;
};

}  // namespace tessara
