#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

#include "drivers/nfc/Cr95Hf.h"
#include "drivers/nfc/HexText.h"
#include "drivers/nfc/Iso15693.h"
#include "drivers/nfc/MailboxExchange.h"
#include "drivers/nfc/MailboxPieces.h"
#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/TagCommands.h"
#include "drivers/nfc/Twn4.h"

namespace tessara {
namespace {

using Input = std::span<const std::uint8_t>;

void require(bool holds) {
  if (!holds) std::abort();
}

void readAirRequest(Input bytes) {
  const AirRequest request = decodeAirRequest(bytes);
  require(encodeAirRequest(request) == Bytes(bytes.begin(), bytes.end()));
}

void readAirAnswer(Input bytes) {
  const auto contents = withoutAirChecksum(bytes);
  require(withAirChecksum({contents.begin(), contents.end()}) == Bytes(bytes.begin(), bytes.end()));
  const AirAnswer answer = decodeAirAnswer(contents);
  require(encodeAirAnswer(answer) == Bytes(contents.begin(), contents.end()));
  (void)uidOf(dataOf(answer));
}

void readReport(Input bytes) {
  const cr95hf::Answer answer = cr95hf::decodeReport(bytes);
  require(bytesOfHex(cr95hf::textOf(answer).substr(4)) == answer.data);
  (void)dataOf(cr95hf::tagAnswerOf(answer));
}

void readVersion(Input bytes) {
  (void)twn4::isSimpleProtocol(twn4::versionOf(twn4::resultsOf(bytes)));
}

void readSearch(Input bytes) {
  (void)twn4::tagOf(twn4::resultsOf(bytes));
}

void readTagData(Input bytes) {
  (void)twn4::tagDataOf(twn4::resultsOf(bytes));
}

void readLine(Input bytes) {
  const Bytes contents = bytesOfHex(std::string(bytes.begin(), bytes.end()));
  require(bytesOfHex(hexText(contents)) == contents);
}

/// Messages, each preceded by its length.
void assemble(Input bytes) {
  PieceAssembler assembler;
  while (!bytes.empty()) {
    const std::size_t length = std::min<std::size_t>(bytes.front(), bytes.size() - 1);
    const auto frame = assembler.add(bytes.subspan(1, length));
    require(!frame || !frame->empty());
    bytes = bytes.subspan(1 + length);
  }
}

/// The answers of a tag to the requests of an exchange, each preceded by its length; a length of
/// 255 is a refusal, and each answer takes a while.
void exchangeMessages(Input bytes) {
  using namespace std::chrono_literals;
  MailboxExchange::Clock::time_point now{1h};
  MailboxExchange exchange(Bytes(bytes.empty() ? 1 : 1 + bytes.front(), 0x11), {}, now);
  while (!bytes.empty() && !exchange.isDone()) {
    require(encodeAirRequest(exchange.request()).size() <= cr95hf::maxReportData);
    now += exchange.pause(now) + 1ms;
    if (bytes.front() == 0xFF) {
      exchange.refused("refused", now);
      bytes = bytes.subspan(1);
      continue;
    }
    const std::size_t length = std::min<std::size_t>(bytes.front(), bytes.size() - 1);
    exchange.answered(bytes.subspan(1, length), now);
    bytes = bytes.subspan(1 + length);
  }
}

constexpr std::array decoders{readAirRequest, readAirAnswer, readReport,
                              readVersion,    readSearch,    readTagData,
                              readLine,       assemble,      exchangeMessages};

}  // namespace
}  // namespace tessara

/// The first byte selects the decoder of the others. Each fails only with its own error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using tessara::decoders;
  if (size == 0) return 0;
  try {
    decoders[data[0] % decoders.size()]({data + 1, size - 1});
  } catch (const tessara::NfcFault&) {
    return 0;
  }
  return 0;
}
