#include <numeric>

#include <gtest/gtest.h>

#include "drivers/nfc/FaultOf.h"
#include "drivers/nfc/HexBytes.h"
#include "drivers/nfc/MailboxPieces.h"
#include "drivers/nfc/TagCommands.h"

namespace tessara {
namespace {

using testing::hex;

Bytes frameOfLength(std::size_t length) {
  Bytes frame(length);
  std::iota(frame.begin(), frame.end(), std::uint8_t{1});
  return frame;
}

TEST(MailboxPieces, DoNotSplitAFrameThatFits) {
  EXPECT_EQ(piecesOf(frameOfLength(1)), std::vector<Bytes>({frameOfLength(1)}));
  EXPECT_EQ(piecesOf(frameOfLength(57)), std::vector<Bytes>({frameOfLength(57)}));
}

TEST(MailboxPieces, OfALongerFrameBeginWithTheMarkAndTheirNumber) {
  const auto pieces = piecesOf(frameOfLength(58));
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_EQ(pieces[0].size(), 57U);
  EXPECT_EQ(Bytes(pieces[0].begin(), pieces[0].begin() + 3), hex("FF 00 01"));
  EXPECT_EQ(pieces[1], hex("FF 81 38 39 3A"));
}

TEST(MailboxPieces, OfTheLongestFrameAreFive) {
  const auto pieces = piecesOf(frameOfLength(256));
  ASSERT_EQ(pieces.size(), 5U);
  for (const Bytes& piece : pieces) EXPECT_LE(piece.size(), maxPieceLength);
  EXPECT_EQ(pieces[4][1], 0x84);
}

TEST(MailboxPieces, AreAssembledAgain) {
  for (std::size_t length = 1; length <= maxFrameLength; ++length) {
    PieceAssembler assembler;
    std::optional<Bytes> frame;
    for (const Bytes& piece : piecesOf(frameOfLength(length))) {
      ASSERT_EQ(frame, std::nullopt) << length;
      frame = assembler.add(piece);
    }
    EXPECT_EQ(frame, frameOfLength(length));
  }
}

TEST(MailboxPieces, TakeALongMessageInOnePiece) {
  EXPECT_EQ(PieceAssembler().add(frameOfLength(200)), frameOfLength(200));
}

TEST(MailboxPieces, WithAGapAreDamage) {
  PieceAssembler assembler;
  (void)assembler.add(hex("FF 00 01"));
  EXPECT_EQ(faultOf([&] { (void)assembler.add(hex("FF 82 03")); }).kind, NfcFaultKind::Damage);
  EXPECT_EQ(faultOf([&] { (void)assembler.add(hex("FF 81 02")); }).kind, NfcFaultKind::Damage);
}

TEST(MailboxPieces, StartOverWithAFirstPiece) {
  PieceAssembler assembler;
  (void)assembler.add(hex("FF 00 01"));
  EXPECT_EQ(assembler.add(hex("FF 00 02")), std::nullopt);
  EXPECT_EQ(assembler.add(hex("FF 81 03")), hex("02 03"));
}

TEST(MailboxPieces, StartOverWithAWholeFrame) {
  PieceAssembler assembler;
  (void)assembler.add(hex("FF 00 01"));
  EXPECT_EQ(assembler.add(hex("C0 11")), hex("C0 11"));
  EXPECT_EQ(faultOf([&] { (void)assembler.add(hex("FF 81 02")); }).kind, NfcFaultKind::Damage);
}

TEST(MailboxPieces, ThatAreEmptyAreDamage) {
  for (const char* message : {"", "FF", "FF 80"}) {
    EXPECT_EQ(faultOf([&] { (void)PieceAssembler().add(hex(message)); }).kind, NfcFaultKind::Damage)
        << message;
  }
}

TEST(MailboxPieces, ThatExceedTheLongestFrameAreDamage) {
  PieceAssembler assembler;
  Bytes piece(202, 0x01);
  piece[0] = pieceMark;
  piece[1] = 0x00;
  (void)assembler.add(piece);
  piece[1] = 0x81;
  EXPECT_EQ(faultOf([&] { (void)assembler.add(piece); }).kind, NfcFaultKind::Damage);
}

}  // namespace
}  // namespace tessara
