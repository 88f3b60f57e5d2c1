#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "drivers/hart/HartFrame.h"

namespace tessara {

/// Most expansion bytes that a delimiter can announce.
inline constexpr std::size_t maxHartExpansion = 3;

/// The first byte of a frame: the kind of the frame and the form of its head.
class HartDelimiter {
 public:
  static HartDelimiter of(const HartFrame& frame);

  /// The delimiter `byte`; nothing if no frame begins with that byte.
  static std::optional<HartDelimiter> fromByte(std::uint8_t byte);

  [[nodiscard]] std::uint8_t byte() const { return byte_; }
  [[nodiscard]] HartFrameKind kind() const { return static_cast<HartFrameKind>(byte_ & kindMask); }
  [[nodiscard]] bool isPsk() const { return (byte_ & physicalLayerMask) == psk; }
  [[nodiscard]] std::size_t addressLength() const {
    return (byte_ & longBit) != 0 ? HartAddress::longLength : HartAddress::shortLength;
  }
  [[nodiscard]] std::size_t expansionLength() const { return (byte_ & expansionMask) >> 5U; }

 private:
  static constexpr std::uint8_t longBit = 0x80;
  static constexpr std::uint8_t expansionMask = 0x60;
  static constexpr std::uint8_t physicalLayerMask = 0x18;
  static constexpr std::uint8_t psk = 0x08;  // 0 is frequency shift; higher values are invalid
  static constexpr std::uint8_t kindMask = 0x07;

  explicit HartDelimiter(std::uint8_t byte) : byte_(byte) {}

  std::uint8_t byte_;
};

}  // namespace tessara
