#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "drivers/nfc/Iso15693.h"

namespace tessara {

/// How a frame travels in mailbox messages that every reader can carry.
///
/// A frame of up to maxPieceLength bytes is one message. A longer one is cut into messages of
/// at most maxPieceLength bytes that each begin with two bytes: pieceMark, which no frame begins
/// with because no module has that address, and the number of the piece, counted from 0, with bit 7
/// set on the last one.

inline constexpr std::uint8_t pieceMark = 0xFF;
inline constexpr std::uint8_t lastPiece = 0x80;

/// The longest frame that travels: that of a serial line.
inline constexpr std::size_t maxFrameLength = 256;

/// The messages that carry a frame of 1 to maxFrameLength bytes.
std::vector<Bytes> piecesOf(std::span<const std::uint8_t> frame);

/// Assembles frames from messages.
class PieceAssembler {
 public:
  /// Takes the next message and returns the frame that it completes, if any. Throws NfcFault
  /// (Damage) if the message is empty, a piece is missing or the frame becomes too long. A whole
  /// frame or a first piece discards an unfinished frame.
  std::optional<Bytes> add(std::span<const std::uint8_t> message);

 private:
  void addPiece(std::span<const std::uint8_t> piece);

  Bytes frame_;
  std::uint8_t next_ = 0;
};

}  // namespace tessara
