#include "drivers/hart/HartDelimiter.h"

namespace tessara {

HartDelimiter HartDelimiter::of(const HartFrame& frame) {
  const unsigned int length = frame.address.isLong() ? longBit : 0U;
  const unsigned int expansion = static_cast<unsigned int>(frame.expansion.size()) << 5U;
  const unsigned int layer = frame.isPsk ? psk : 0U;
  return HartDelimiter(static_cast<std::uint8_t>(length | (expansion & expansionMask) | layer |
                                                 static_cast<unsigned int>(frame.kind)));
}

std::optional<HartDelimiter> HartDelimiter::fromByte(std::uint8_t byte) {
  if ((byte & physicalLayerMask) > psk) return std::nullopt;
  switch (static_cast<HartFrameKind>(byte & kindMask)) {
    case HartFrameKind::Burst:
    case HartFrameKind::Request:
    case HartFrameKind::Answer:
      return HartDelimiter(byte);
  }
  return std::nullopt;
}

}  // namespace tessara
