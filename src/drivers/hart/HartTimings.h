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
  /// RT1: the first character of an answer must come within this time; a line that was quiet for as
  /// long is free.
  std::chrono::milliseconds linkQuiet{305};
  /// RT2: the turn of the other master after an answer to this one.
  std::chrono::milliseconds linkGrant{75};
  /// How long an unused turn of this master lasts.
  std::chrono::milliseconds hold{20};
  /// A frame that pauses for longer has broken off. Much more than a sender may pause, because
  /// adapters deliver in bursts.
  std::chrono::milliseconds gap{100};
  /// Allowance for adapters and a busy system, on top of the line's own time.
  std::chrono::milliseconds hostMargin{200};
  /// A line that is never quiet is given up after this time.
  std::chrono::milliseconds noise{5000};
  /// A delayed answer is awaited for this long in all.
  std::chrono::milliseconds delayedAnswer{3000};

  [[nodiscard]] std::chrono::nanoseconds characters(std::size_t count) const {
    return character * static_cast<std::int64_t>(count);
  }
};

}  // namespace tessara
