#include "drivers/nfc/Cr95Hf.h"

#include <algorithm>

#include "drivers/nfc/HexText.h"
#include "drivers/nfc/NfcFault.h"

namespace tessara::cr95hf {

namespace {

constexpr std::size_t kAnswerHeader = 3;  // identifier, result code, length
constexpr std::size_t kStatusLength = 1;  // what the chip adds behind the tag's checksum

struct ResultMeaning {
  std::uint8_t code;
  NfcFaultKind kind;
  const char* text;
};

constexpr std::array kResultMeanings{
    ResultMeaning{0x82, NfcFaultKind::ReaderRefusal, "invalid length"},
    ResultMeaning{kNoProtocol, NfcFaultKind::ReaderRefusal, "no protocol selected"},
    ResultMeaning{kCommunicationError, NfcFaultKind::Damage, "communication error"},
    ResultMeaning{kNoAnswer, NfcFaultKind::TagGone, "no answer from a tag"},
    ResultMeaning{0x88, NfcFaultKind::Damage, "invalid start of frame"},
    ResultMeaning{0x89, NfcFaultKind::Damage, "receive buffer overflow"},
    ResultMeaning{0x8A, NfcFaultKind::Damage, "framing error"},
    ResultMeaning{0x8B, NfcFaultKind::Damage, "guard time exceeded"},
    ResultMeaning{0x8C, NfcFaultKind::Damage, "invalid length of the answer"},
    ResultMeaning{0x8D, NfcFaultKind::Damage, "checksum error"},
    ResultMeaning{0x8E, NfcFaultKind::Damage, "reception lost"},
};

NfcFault faultOf(std::uint8_t result) {
  const auto* const known = std::find_if(kResultMeanings.begin(), kResultMeanings.end(),
                                         [result](const auto& row) { return row.code == result; });
  const bool isKnown = known != kResultMeanings.end();
  return {isKnown ? known->kind : NfcFaultKind::ReaderRefusal,
          "the reader reports error " + hexText(result) + ": " +
              (isKnown ? known->text : "unknown code")};
}

}  // namespace

Bytes sendReceive(std::span<const std::uint8_t> airRequest) {
  Bytes command{kSendReceive, static_cast<std::uint8_t>(airRequest.size())};
  command.insert(command.end(), airRequest.begin(), airRequest.end());
  return command;
}

Report reportOf(ReportId id, std::span<const std::uint8_t> contents) {
  Report report{static_cast<std::uint8_t>(id)};
  std::copy_n(contents.begin(), std::min(contents.size(), report.size() - 1), report.begin() + 1);
  return report;
}

Report reportOf(const Answer& answer) {
  Bytes contents{answer.result, static_cast<std::uint8_t>(answer.data.size())};
  contents.insert(contents.end(), answer.data.begin(), answer.data.end());
  return reportOf(ReportId::Answer, contents);
}

Answer decodeReport(std::span<const std::uint8_t> report) {
  if (report.size() < kAnswerHeader ||
      report.front() != static_cast<std::uint8_t>(ReportId::Answer)) {
    throw NfcFault(NfcFaultKind::Damage, "the reader sent a report that is no answer");
  }
  const std::size_t length = report[2];
  if (report.size() < kAnswerHeader + length) {
    throw NfcFault(NfcFaultKind::Damage,
                   "the reader sent an answer of " + std::to_string(length) + " bytes, of which " +
                       std::to_string(report.size() - kAnswerHeader) + " fit one report");
  }
  const auto data = report.subspan(kAnswerHeader, length);
  return {report[1], Bytes(data.begin(), data.end())};
}

AirAnswer tagAnswerOf(const Answer& answer) {
  if (answer.result != kDataFollow) throw faultOf(answer.result);
  if (answer.data.size() < kStatusLength) {
    throw NfcFault(NfcFaultKind::Damage, "the answer of the tag is empty");
  }
  const auto received = std::span(answer.data).first(answer.data.size() - kStatusLength);
  return decodeAirAnswer(withoutAirChecksum(received));
}

std::string textOf(const Answer& answer) {
  return hexText(answer.result) + hexText(static_cast<std::uint8_t>(answer.data.size())) +
         hexText(answer.data);
}

}  // namespace tessara::cr95hf
