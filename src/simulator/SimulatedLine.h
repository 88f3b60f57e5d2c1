#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "simulator/Fault.h"

namespace tessara {

/// The far end of a virtual port: turns the bytes of a client into answers. Knows no device and no
/// clock.
class SimulatedLine {
 public:
  SimulatedLine() = default;
  SimulatedLine(const SimulatedLine&) = delete;
  SimulatedLine& operator=(const SimulatedLine&) = delete;
  virtual ~SimulatedLine() = default;

  /// The answers to all requests that these bytes complete, in their order.
  virtual std::vector<SimulatedAnswer> receive(std::span<const std::uint8_t> bytes) = 0;

  /// The line has fallen silent after an open frame. Nothing if there is no answer to it.
  virtual std::optional<SimulatedAnswer> silence() = 0;

  /// True while a frame has begun that only further bytes or silence will end.
  [[nodiscard]] virtual bool isFrameOpen() const = 0;

  /// Drops an unfinished frame: its line is gone.
  virtual void forgetOpenFrame() = 0;

  /// True if bytes that come while an answer is being sent are lost.
  [[nodiscard]] virtual bool isDeafWhileSending() const { return false; }
};

}  // namespace tessara
