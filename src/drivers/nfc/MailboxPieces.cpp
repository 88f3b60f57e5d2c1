#include "drivers/nfc/MailboxPieces.h"

#include <algorithm>
#include <utility>

#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/TagCommands.h"

namespace tessara {

namespace {

constexpr std::size_t headerLength = 2;
constexpr std::size_t pieceContents = maxPieceLength - headerLength;

}  // namespace

std::vector<Bytes> piecesOf(std::span<const std::uint8_t> frame) {
  if (frame.size() <= maxPieceLength) return {Bytes(frame.begin(), frame.end())};
  std::vector<Bytes> pieces;
  for (std::size_t offset = 0; offset < frame.size(); offset += pieceContents) {
    const auto part = frame.subspan(offset, std::min(pieceContents, frame.size() - offset));
    const bool isLast = offset + part.size() == frame.size();
    Bytes piece{pieceMark, static_cast<std::uint8_t>(pieces.size() | (isLast ? lastPiece : 0U))};
    piece.insert(piece.end(), part.begin(), part.end());
    pieces.push_back(std::move(piece));
  }
  return pieces;
}

std::optional<Bytes> PieceAssembler::add(std::span<const std::uint8_t> message) {
  if (message.empty()) throw NfcFault(NfcFaultKind::Damage, "a message in the mailbox is empty");
  if (message.front() != pieceMark) {
    *this = {};
    return Bytes(message.begin(), message.end());
  }
  try {
    addPiece(message);
  } catch (...) {
    *this = {};
    throw;
  }
  if ((message[1] & lastPiece) == 0) return std::nullopt;
  return std::exchange(*this, {}).frame_;
}

void PieceAssembler::addPiece(std::span<const std::uint8_t> piece) {
  const bool isFirst = piece.size() > headerLength && (piece[1] & ~lastPiece) == 0;
  if (isFirst) *this = {};
  if (piece.size() <= headerLength || (piece[1] & ~lastPiece) != next_) {
    throw NfcFault(NfcFaultKind::Damage,
                   "piece " + std::to_string(next_) + " of a message in the mailbox is missing");
  }
  const auto contents = piece.subspan(headerLength);
  if (frame_.size() + contents.size() > maxFrameLength) {
    throw NfcFault(NfcFaultKind::Damage, "a message in the mailbox is too long");
  }
  frame_.insert(frame_.end(), contents.begin(), contents.end());
  ++next_;
}

}  // namespace tessara
