#include "drivers/nfc/MailboxPieces.h"

#include <algorithm>
#include <utility>

#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/TagCommands.h"

namespace tessara {

namespace {

constexpr std::size_t kHeaderLength = 2;
constexpr std::size_t kPieceContents = kPieceLength - kHeaderLength;

}  // namespace

std::vector<Bytes> piecesOf(std::span<const std::uint8_t> frame) {
  if (frame.size() <= kPieceLength) return {Bytes(frame.begin(), frame.end())};
  std::vector<Bytes> pieces;
  for (std::size_t offset = 0; offset < frame.size(); offset += kPieceContents) {
    const auto part = frame.subspan(offset, std::min(kPieceContents, frame.size() - offset));
    const bool isLast = offset + part.size() == frame.size();
    Bytes piece{kPieceMark, static_cast<std::uint8_t>(pieces.size() | (isLast ? kLastPiece : 0U))};
    piece.insert(piece.end(), part.begin(), part.end());
    pieces.push_back(std::move(piece));
  }
  return pieces;
}

std::optional<Bytes> PieceAssembler::add(std::span<const std::uint8_t> message) {
  if (message.empty()) throw NfcFault(NfcFaultKind::Damage, "a message in the mailbox is empty");
  if (message.front() != kPieceMark) {
    *this = {};
    return Bytes(message.begin(), message.end());
  }
  try {
    addPiece(message);
  } catch (...) {
    *this = {};
    throw;
  }
  if ((message[1] & kLastPiece) == 0) return std::nullopt;
  return std::exchange(*this, {}).frame_;
}

void PieceAssembler::addPiece(std::span<const std::uint8_t> piece) {
  const bool isFirst = piece.size() > kHeaderLength && (piece[1] & ~kLastPiece) == 0;
  if (isFirst) *this = {};
  if (piece.size() <= kHeaderLength || (piece[1] & ~kLastPiece) != next_) {
    throw NfcFault(NfcFaultKind::Damage,
                   "piece " + std::to_string(next_) + " of a message in the mailbox is missing");
  }
  const auto contents = piece.subspan(kHeaderLength);
  if (frame_.size() + contents.size() > kLongestFrame) {
    throw NfcFault(NfcFaultKind::Damage, "a message in the mailbox is too long");
  }
  frame_.insert(frame_.end(), contents.begin(), contents.end());
  ++next_;
}

}  // namespace tessara
