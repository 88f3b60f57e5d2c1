#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "drivers/nfc/Iso15693.h"
#include "simulator/nfc/FieldFault.h"
#include "simulator/nfc/SimulatedTag.h"

namespace tessara {

/// A module with a tag, and what goes wrong in the field of its reader.
struct SimulatedNfcModule {
  SimulatedModule module;
  TagUid uid{0xE0, 0x02, 0x26, 0x44, 0x55, 0x66, 0x77, 0x88};
  std::vector<FieldFault> faults{};
};

/// The outcome of a request that a reader sent into its field.
struct FieldOutcome {
  std::optional<AirAnswer> answer{};  ///< nothing if no tag answered
  bool isDamaged = false;             ///< the answer's checksum is wrong
  std::optional<std::uint8_t> readerError{};
  bool isReaderSilent = false;
};

/// The field of a reader, with a tag that may come and go.
class SimulatedField {
 public:
  using Clock = SimulatedTag::Clock;

  /// Throws std::invalid_argument if the module is invalid.
  explicit SimulatedField(SimulatedNfcModule module);

  /// Sends a request at `now`.
  FieldOutcome send(const AirRequest& request, Clock::time_point now);

  /// Switches the field off; the next request switches it on.
  void switchOff() { tag_.losePower(); }

  /// Replaces the faults, and counts requests from 1 again; the effects of earlier ones
  /// end.
  void setFaults(const std::vector<FieldFault>& faults);

  /// Replaces the module in the field. The new module's own list of faults is ignored.
  void replaceTag(SimulatedNfcModule module);

  SimulatedTag& tag() { return tag_; }

 private:
  struct Ordered {
    FieldEffect effect;
    FaultClock clock;
  };
  struct Spoiler;

  void follow(Clock::time_point now);

  SimulatedTag tag_;
  std::vector<Ordered> faults_;
  std::uint64_t requests_ = 0;
  std::optional<Clock::time_point> absentUntil_;
  std::optional<Clock::time_point> blockedUntil_;
  std::optional<Clock::time_point> asleepUntil_;
};

}  // namespace tessara
