#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "drivers/hart/HartFrame.h"

namespace tessara {

/// What is wrong with a frame that has come.
enum class HartDamage {
  None,
  CheckByte,  ///< the check byte does not fit the bytes
  ByteCount,  ///< a station's frame too short for its two status bytes
  BrokenOff,  ///< the line fell silent before its end
};

/// One frame that has come.
struct HartReception {
  HartDamage damage = HartDamage::None;
  HartFrame frame{};  ///< as it came; empty if it broke off
};

/// Finds frames in the bytes of a line, in whatever pieces they come.
///
/// A frame begins with the delimiter behind two preambles. All else between frames is noise and is
/// passed over: preambles, junk when a carrier comes or goes. A damaged frame is told and then
/// searched for another beginning, since its own may have been noise. Any byte may come at any
/// time; the parser keeps one frame at most.
class HartParser {
 public:
  /// Takes what has come.
  void feed(std::span<const std::uint8_t> bytes);

  /// The next frame that has come to its end, whole or damaged; nothing if more bytes are needed.
  std::optional<HartReception> next();

  /// The line has been silent for longer than a frame may pause: an open frame ends here. Its
  /// damage comes from `next`, and then whatever else was in it.
  void silence() { isSilent_ = isOpen_; }

  /// True if a frame has begun that only further bytes or silence will end. To be asked when
  /// `next` has nothing more to give.
  [[nodiscard]] bool isFrameOpen() const { return isOpen_; }

  /// Forgets all that has come.
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
