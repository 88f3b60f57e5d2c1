#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

namespace tessara {

/// How long the link waits for what. The defaults are those of the line at 1200 bit/s, for the
/// primary master.
struct HartTimings {
  /// One character: 11 bits.
  std::chrono::nanoseconds character{11'000'000'000 / 1200};
  /// RT1: the first character of an answer has to come by then; a line that was quiet for as long
  /// belongs to nobody.
  std::chrono::milliseconds linkQuiet{305};
  /// RT2: the turn of the other master behind an own answer.
  std::chrono::milliseconds linkGrant{75};
  /// How long an own turn lasts that has not been used.
  std::chrono::milliseconds hold{20};
  /// A frame that pauses for longer has broken off. Far more than a sender may pause: adapters
  /// deliver what has come in bursts.
  std::chrono::milliseconds gap{100};
  /// What all may take beyond the line's own time: adapters, and a system with other things to do.
  std::chrono::milliseconds hostMargin{200};
  /// A line that is never quiet is given up after this.
  std::chrono::milliseconds noise{5000};
  /// A station that asks for patience is asked again for this long.
  std::chrono::milliseconds delayedAnswer{5000};

  [[nodiscard]] std::chrono::nanoseconds characters(std::size_t count) const {
    return character * static_cast<std::int64_t>(count);
  }
};

}  // namespace tessara
