#include "drivers/nfc/Cr95Hf.h"

#include <algorithm>

#include "drivers/nfc/HexText.h"
#include "drivers/nfc/NfcFault.h"

namespace tessara::cr95hf {

namespace {

constexpr std::size_t answerHeader = 3;  // identifier, result code, length
constexpr std::size_t statusBytes = 1;   // what the chip adds after the tag's checksum

struct ResultMeaning {
  std::uint8_t code;
  NfcFaultKind kind;
  const char* text;
};

constexpr std::array resultMeanings{
    ResultMeaning{0x82, NfcFaultKind::ReaderRefusal, "invalid length"},
    ResultMeaning{noProtocol, NfcFaultKind::ReaderRefusal, "no protocol selected"},
    ResultMeaning{communicationError, NfcFaultKind::Damage, "communication error"},
    ResultMeaning{noAnswer, NfcFaultKind::TagGone, "no answer from a tag"},
    ResultMeaning{0x88, NfcFaultKind::Damage, "invalid start of frame"},
    ResultMeaning{0x89, NfcFaultKind::Damage, "receive buffer overflow"},
    ResultMeaning{0x8A, NfcFaultKind::Damage, "framing error"},
    ResultMeaning{0x8B, NfcFaultKind::Damage, "guard time exceeded"},
    ResultMeaning{0x8C, NfcFaultKind::Damage, "invalid length of the answer"},
    ResultMeaning{0x8D, NfcFaultKind::Damage, "checksum error"},
    ResultMeaning{0x8E, NfcFaultKind::Damage, "reception lost"},
};

NfcFault faultOf(std::uint8_t result) {
  const auto* const known = std::find_if(resultMeanings.begin(), resultMeanings.end(),
                                         [result](const auto& row) { return row.code == result; });
  const bool isKnown = known != resultMeanings.end();
  return {isKnown ? known->kind : NfcFaultKind::ReaderRefusal,
          "the reader reports error " + hexText(result) + ": " +
              (isKnown ? known->text : "unknown code")};
}

}  // namespace

Bytes sendReceive(std::span<const std::uint8_t> airRequest) {
  Bytes command{sendReceiveCommand, static_cast<std::uint8_t>(airRequest.size())};
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
  if (report.size() < answerHeader ||
      report.front() != static_cast<std::uint8_t>(ReportId::Answer)) {
    throw NfcFault(NfcFaultKind::Damage, "the reader sent a report that is not an answer");
  }
  const std::size_t length = report[2];
  if (report.size() < answerHeader + length) {
    throw NfcFault(NfcFaultKind::Damage,
                   "the reader sent an answer of " + std::to_string(length) + " bytes, of which " +
                       std::to_string(report.size() - answerHeader) + " fit one report");
  }
  const auto data = report.subspan(answerHeader, length);
  return {report[1], Bytes(data.begin(), data.end())};
}

AirAnswer tagAnswerOf(const Answer& answer) {
  if (answer.result != dataFollow) throw faultOf(answer.result);
  if (answer.data.size() < statusBytes) {
    throw NfcFault(NfcFaultKind::Damage, "the answer of the tag is empty");
  }
  const auto received = std::span(answer.data).first(answer.data.size() - statusBytes);
  return decodeAirAnswer(withoutAirChecksum(received));
}

std::string textOf(const Answer& answer) {
  return hexText(answer.result) + hexText(static_cast<std::uint8_t>(answer.data.size())) +
         hexText(answer.data);
}

}  // namespace tessara::cr95hf
