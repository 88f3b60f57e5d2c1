#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "drivers/nfc/Cr95Hf.h"
#include "drivers/nfc/HexText.h"
#include "drivers/nfc/Iso15693.h"
#include "drivers/nfc/MailboxPieces.h"
#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/TagCommands.h"
#include "drivers/nfc/Twn4.h"
#include "simulator/nfc/SimulatedTwn4.h"
#include "simulator/nfc/SimulatedUsbReader.h"

namespace tessara {
namespace {

constexpr int rounds = 3000;

/// The same messages in each run.
class NfcCodecs : public ::testing::Test {
 protected:
  std::size_t number(std::size_t lowest, std::size_t highest) {
    return std::uniform_int_distribution<std::size_t>(lowest, highest)(random_);
  }
  std::uint8_t byte() { return static_cast<std::uint8_t>(number(0, 0xFF)); }
  Bytes bytes(std::size_t lowest, std::size_t highest) {
    Bytes bytes(number(lowest, highest));
    std::generate(bytes.begin(), bytes.end(), [this] { return byte(); });
    return bytes;
  }

  AirRequest airRequest() {
    AirRequest request{byte(), byte(), {}, bytes(0, maxPieceLength)};
    if (isAddressed(request)) {
      std::generate(request.uid.begin(), request.uid.end(), [this] { return byte(); });
    }
    return request;
  }

 private:
  std::mt19937 random_{20240501};
};

/// Calls a decoder; the only thing that it may throw is an NfcFault.
template <class Decoder>
void survives(Decoder decoder) {
  try {
    (void)decoder();
  } catch (const NfcFault& fault) {
    EXPECT_STRNE(fault.what(), "");
  }
}

TEST_F(NfcCodecs, DecodeEveryAirRequestToItself) {
  for (int round = 0; round < rounds; ++round) {
    const AirRequest request = airRequest();
    const Bytes air = withAirChecksum(encodeAirRequest(request));
    EXPECT_EQ(decodeAirRequest(withoutAirChecksum(air)), request);
  }
}

TEST_F(NfcCodecs, DecodeEveryAirAnswerToItself) {
  for (int round = 0; round < rounds; ++round) {
    const AirAnswer answer{byte(), bytes(0, maxPieceLength)};
    EXPECT_EQ(decodeAirAnswer(encodeAirAnswer(answer)), answer);
  }
}

TEST_F(NfcCodecs, DetectEveryFlippedBitOnAir) {
  for (int round = 0; round < rounds; ++round) {
    Bytes air = withAirChecksum(bytes(1, 61));
    air[number(0, air.size() - 1)] ^= static_cast<std::uint8_t>(1U << number(0, 7));
    EXPECT_THROW((void)withoutAirChecksum(air), NfcFault);
  }
}

TEST_F(NfcCodecs, DecodeEveryReportToItself) {
  for (int round = 0; round < rounds; ++round) {
    const cr95hf::Answer answer{byte(), bytes(0, cr95hf::maxReportData)};
    EXPECT_EQ(cr95hf::decodeReport(cr95hf::reportOf(answer)), answer);
  }
}

TEST_F(NfcCodecs, DecodeEveryLineToItself) {
  for (int round = 0; round < rounds; ++round) {
    const Bytes contents = bytes(0, 100);
    std::string line = twn4::lineOf(contents);
    ASSERT_EQ(line.back(), twn4::lineEnd);
    line.pop_back();
    EXPECT_EQ(bytesOfHex(line), contents);
  }
}

TEST_F(NfcCodecs, AssembleEveryFrameAgain) {
  PieceAssembler assembler;
  for (int round = 0; round < rounds; ++round) {
    Bytes frame = bytes(1, maxFrameLength);
    frame.front() = static_cast<std::uint8_t>(number(1, 247));
    std::optional<Bytes> assembled;
    for (const Bytes& piece : piecesOf(frame)) {
      ASSERT_LE(piece.size(), maxPieceLength);
      assembled = assembler.add(piece);
    }
    EXPECT_EQ(assembled, frame);
  }
}

TEST_F(NfcCodecs, SurviveBytesOfAnyKind) {
  PieceAssembler assembler;
  for (int round = 0; round < rounds; ++round) {
    const Bytes input = bytes(0, 80);
    survives([&] { return decodeAirRequest(input); });
    survives([&] { return withoutAirChecksum(input); });
    survives([&] { return dataOf(decodeAirAnswer(input)); });
    survives([&] { return uidOf(input); });
    survives([&] { return cr95hf::tagAnswerOf(cr95hf::decodeReport(input)); });
    survives([&] { return twn4::versionOf(twn4::resultsOf(input)); });
    survives([&] { return twn4::tagOf(twn4::resultsOf(input)); });
    survives([&] { return twn4::tagDataOf(twn4::resultsOf(input)); });
    survives([&] { return bytesOfHex(std::string(input.begin(), input.end())); });
    survives([&] { return assembler.add(input); });
  }
}

TEST_F(NfcCodecs, SurviveAnswersThatAreAlmostRight) {
  for (int round = 0; round < rounds; ++round) {
    Bytes report(64);
    const Bytes contents = bytes(1, 63);
    report[0] = 0x07;
    std::copy(contents.begin(), contents.end(), report.begin() + 1);
    report[1] = 0x80;
    survives([&] { return cr95hf::tagAnswerOf(cr95hf::decodeReport(report)); });
    Bytes results = bytes(0, 20);
    results.insert(results.begin(), {0x00, 0x01});
    survives([&] { return twn4::tagOf(twn4::resultsOf(results)); });
    survives([&] { return twn4::tagDataOf(twn4::resultsOf(results)); });
  }
}

TEST_F(NfcCodecs, OfTheSimulatedReadersSurviveBytesOfAnyKind) {
  SimulatedTwn4 line(SimulatedNfcModule{});
  SimulatedBoard board(SimulatedNfcModule{});
  for (int round = 0; round < rounds; ++round) {
    const Bytes input = bytes(0, 64);
    (void)line.receive(input);
    const std::string request = twn4::lineOf(input);
    for (const auto& answer : line.receive(Bytes(request.begin(), request.end()))) {
      EXPECT_EQ(answer.bytes.back(), twn4::lineEnd);
    }
    (void)board.answer(input);
    const AirRequest command = airRequest();
    const auto sent = board.answer(
        cr95hf::reportOf(cr95hf::ReportId::ToChip, cr95hf::sendReceive(encodeAirRequest(command))));
    ASSERT_TRUE(sent.has_value());
    survives([&] { return cr95hf::tagAnswerOf(cr95hf::decodeReport(*sent)); });
  }
}

}  // namespace
}  // namespace tessara
