#include "drivers/nfc/UsbReader.h"

#include <algorithm>
#include <array>

namespace tessara {

using namespace std::chrono_literals;

namespace {

/// Many more reports than a system keeps for a reader: a device that sends as many might go on
/// without end.
constexpr int maxLateReports = 1000;

}  // namespace

cr95hf::Answer UsbReader::echo() {
  send(cr95hf::ReportId::ToChip, cr95hf::echoCommand);
  const auto deadline = Clock::now() + answerTime_;
  for (int late = 0; late < maxLateReports; ++late) {
    cr95hf::Answer answer = answerBefore(deadline);
    if (answer.result == cr95hf::echo) return answer;
  }
  throw noAnswer();
}

cr95hf::Answer UsbReader::revision() {
  return ask(cr95hf::ReportId::ToBoard, std::array{cr95hf::boardRevision});
}

cr95hf::Answer UsbReader::command(std::span<const std::uint8_t> command) {
  return ask(cr95hf::ReportId::ToChip, command);
}

cr95hf::Answer UsbReader::ask(cr95hf::ReportId id, std::span<const std::uint8_t> request) {
  send(id, request);
  return answerBefore(Clock::now() + answerTime_);
}

void UsbReader::send(cr95hf::ReportId id, std::span<const std::uint8_t> request) {
  for (int late = 0; device_->read(0ms); ++late) {
    // What has come already answers earlier requests.
    if (late == maxLateReports) throw noAnswer();
  }
  device_->write(cr95hf::reportOf(id, request));
}

cr95hf::Answer UsbReader::answerBefore(Clock::time_point deadline) {
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
  const auto report = device_->read(std::max(left, 0ms));
  if (!report) throw noAnswer();
  return cr95hf::decodeReport(*report);
}

NfcFault UsbReader::noAnswer() const {
  return {NfcFaultKind::ReaderSilent,
          "the reader does not answer within " + std::to_string(answerTime_.count()) + " ms"};
}

}  // namespace tessara
