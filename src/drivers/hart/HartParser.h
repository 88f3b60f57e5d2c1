#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "drivers/hart/HartFrame.h"

namespace tessara {

/// What is wrong with a received frame.
enum class HartDamage {
  None,
  CheckByte,  ///< the check byte does not match
  ByteCount,  ///< a module's frame is too short for its two status bytes
  BrokenOff,  ///< the line fell silent before its end
};

/// One received frame.
struct HartReception {
  HartDamage damage = HartDamage::None;
  HartFrame frame{};  ///< as received; empty if it broke off
};

/// Finds frames in the bytes of a line, in whatever pieces they come.
///
/// A frame begins with the delimiter after two preambles. Everything else between frames is noise
/// and is skipped: preambles, junk when a carrier comes or goes. A damaged frame is reported and
/// then searched for another beginning, since its own may have been noise. Any byte may come at any
/// time; the parser keeps one frame at most.
class HartParser {
 public:
  /// Takes what has come.
  void feed(std::span<const std::uint8_t> bytes);

  /// The next frame that is complete, intact or damaged; nothing if more bytes are needed.
  std::optional<HartReception> next();

  /// The line has been silent for longer than a frame may pause, so an open frame ends here. `next`
  /// reports the damage, and then whatever else was in it.
  void silence() { isSilent_ = isOpen_; }

  /// True if a frame has begun that only further bytes or silence will end. Meaningful when `next`
  /// has nothing more to return.
  [[nodiscard]] bool isFrameOpen() const { return isOpen_; }

  /// Forgets everything received.
  void reset();

 private:
  void findBeginning();
  [[nodiscard]] std::optional<std::size_t> frameLength() const;
  [[nodiscard]] HartReception reception(std::size_t length) const;
  void drop(std::size_t count);

  HartBytes buffer_;  ///< from the delimiter of the open frame on, or the latest preambles
  bool isOpen_ = false;
  bool isSilent_ = false;
};

}  // namespace tessara
