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
/// A frame of up to kPieceLength bytes is a message as it is. A longer one is cut into messages of
/// at most kPieceLength bytes that each begin with two bytes: kPieceMark, which no frame begins
/// with because no module has that address, and the number of the piece, counted from 0, with bit 7
/// set on the last one.

inline constexpr std::uint8_t kPieceMark = 0xFF;
inline constexpr std::uint8_t kLastPiece = 0x80;

/// The longest frame that travels: that of a serial line.
inline constexpr std::size_t kLongestFrame = 256;

/// The messages that carry a frame of 1 to kLongestFrame bytes.
std::vector<Bytes> piecesOf(std::span<const std::uint8_t> frame);

/// Puts frames together from messages.
class PieceAssembler {
 public:
  /// Takes the next message and gives the frame that is complete with it. Throws NfcFault (Damage)
  /// if the message is empty, a piece is missing or the frame becomes too long. A frame that is
  /// whole in itself, or a first piece, puts an end to one that has been left unfinished.
  std::optional<Bytes> add(std::span<const std::uint8_t> message);

 private:
  void addPiece(std::span<const std::uint8_t> piece);

  Bytes frame_;
  std::uint8_t next_ = 0;
};

}  // namespace tessara
