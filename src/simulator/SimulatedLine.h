#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "simulator/Fault.h"

namespace tessara {

/// What is at the far end of a virtual port: turns the bytes of a client into answers. Knows no
/// device and no clock.
class SimulatedLine {
 public:
  SimulatedLine() = default;
  SimulatedLine(const SimulatedLine&) = delete;
  SimulatedLine& operator=(const SimulatedLine&) = delete;
  virtual ~SimulatedLine() = default;

  /// The answers to all requests that are complete with these bytes, in their order.
  virtual std::vector<SimulatedAnswer> receive(std::span<const std::uint8_t> bytes) = 0;

  /// The line has fallen silent behind a frame that was open. Nothing if there is no answer to it.
  virtual std::optional<SimulatedAnswer> silence() = 0;

  /// True while a frame has begun that only further bytes or silence will end.
  [[nodiscard]] virtual bool isFrameOpen() const = 0;

  /// Drops a frame that has begun: its line is gone.
  virtual void forgetOpenFrame() = 0;

  /// True if bytes that come while an answer is being sent are lost.
  [[nodiscard]] virtual bool isDeafWhileSending() const { return false; }
};

}  // namespace tessara
