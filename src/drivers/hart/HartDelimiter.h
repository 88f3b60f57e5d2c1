#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "drivers/hart/HartFrame.h"

namespace tessara {

/// Expansion bytes that a delimiter can announce.
inline constexpr std::size_t kHartMostExpansion = 3;

/// The first byte of a frame: what kind of frame it is and how its head is built.
class HartDelimiter {
 public:
  static HartDelimiter of(const HartFrame& frame);

  /// The delimiter that `byte` is; nothing if no frame begins like that.
  static std::optional<HartDelimiter> fromByte(std::uint8_t byte);

  [[nodiscard]] std::uint8_t byte() const { return byte_; }
  [[nodiscard]] HartFrameKind kind() const { return static_cast<HartFrameKind>(byte_ & kKindMask); }
  [[nodiscard]] bool isPsk() const { return (byte_ & kPhysicalLayerMask) == kPsk; }
  [[nodiscard]] std::size_t addressLength() const {
    return (byte_ & kLongBit) != 0 ? HartAddress::kLongLength : HartAddress::kShortLength;
  }
  [[nodiscard]] std::size_t expansionLength() const { return (byte_ & kExpansionMask) >> 5U; }

 private:
  static constexpr std::uint8_t kLongBit = 0x80;
  static constexpr std::uint8_t kExpansionMask = 0x60;
  static constexpr std::uint8_t kPhysicalLayerMask = 0x18;
  static constexpr std::uint8_t kPsk = 0x08;  // 0 is frequency shift, higher values are none
  static constexpr std::uint8_t kKindMask = 0x07;

  explicit HartDelimiter(std::uint8_t byte) : byte_(byte) {}

  std::uint8_t byte_;
};

}  // namespace tessara
