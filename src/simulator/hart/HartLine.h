#pragma once

#include "drivers/hart/HartParser.h"
#include "simulator/SimulatedLine.h"
#include "simulator/hart/HartSlave.h"

namespace tessara {

/// A HART modem with one module behind it. The master does not hear its own requests.
class HartLine final : public SimulatedLine {
 public:
  /// Throws what HartSlave's constructor throws.
  explicit HartLine(SimulatedHartModule module) : slave_(std::move(module)) {}

  std::vector<SimulatedAnswer> receive(std::span<const std::uint8_t> bytes) override;
  std::optional<SimulatedAnswer> silence() override;
  [[nodiscard]] bool isFrameOpen() const override { return parser_.isFrameOpen(); }
  void forgetOpenFrame() override { parser_.reset(); }
  [[nodiscard]] bool isDeafWhileSending() const override { return true; }

 private:
  HartSlave slave_;
  HartParser parser_;
};

}  // namespace tessara
