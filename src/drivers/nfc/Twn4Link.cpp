#include "drivers/nfc/Twn4Link.h"

#include <algorithm>
#include <array>

#include "drivers/nfc/HexText.h"
#include "drivers/nfc/Twn4.h"
#include "serial/LineError.h"
#include "serial/PortError.h"

namespace tessara {

namespace {

/// A line has at most the digits of status, truth value, length and 255 bytes, and its end.
constexpr std::size_t maxLineLength = 2 * (3 + 255) + 1;

/// Many more lines than a reader can still owe to other programs: a device that sends as many is
/// not a reader, and might go on without end.
constexpr int maxLateLines = 1000;

constexpr std::int32_t usualRate = 115200;

void configure(SerialLine& line, std::int32_t rate) {
  if (rate >= minLineRate) {
    try {
      return line.configure({.rate = rate});
    } catch (const PortError&) {
      // The adapter cannot have this rate.
    }
  }
  line.configure({.rate = usualRate});
}

/// True for the line by which a reader answers versionRequest correctly.
bool reportsSimpleProtocol(const std::string& line) {
  try {
    return twn4::isSimpleProtocol(twn4::versionOf(twn4::resultsOf(bytesOfHex(line))));
  } catch (const NfcFault&) {
    return false;
  }
}

/// Returns what `access` to the line returns.
template <class Access>
auto onLine(Access access) {
  try {
    return access();
  } catch (const LineError& error) {
    throw NfcFault(NfcFaultKind::NoReader, error.problem() == LineProblem::Gone
                                               ? "the reader has been unplugged"
                                               : error.what());
  }
}

}  // namespace

Twn4Link::Twn4Link(const std::string& device, std::int32_t rate,
                   std::chrono::milliseconds answerTime)
    : answerTime_(answerTime), line_(device) {
  configure(line_, rate);
}

Twn4Link::~Twn4Link() {
  try {
    if (isAnswering_) ask(twn4::fieldOffRequest());
  } catch (const NfcFault&) {
    // A reader that has just gone has no field either.
  }
}

TagUid Twn4Link::selectTag() {
  isAnswering_ = false;
  requireSimpleProtocol();
  twn4::resultsOf(ask(twn4::tagTypesRequest()));
  const auto uid = search();
  if (!uid) throw NfcFault(NfcFaultKind::NoTag, "no module in the reader's field");
  return *uid;
}

Bytes Twn4Link::exchange(const AirRequest& request) {
  const Bytes answer = ask(twn4::airRequest(encodeAirRequest(request)));
  if (auto data = twn4::tagDataOf(twn4::resultsOf(answer))) return *std::move(data);
  // The reader reports a tag that refuses like one that has gone.
  if (search()) {
    throw NfcFault(NfcFaultKind::TagRefusal, "the tag refuses, or its answer was damaged");
  }
  throw NfcFault(NfcFaultKind::TagGone, "no answer from a tag");
}

/// Lines that come before the version are late answers to other programs.
void Twn4Link::requireSimpleProtocol() {
  send(twn4::versionRequest());
  const auto deadline = Clock::now() + answerTime_;
  int foreignLines = 0;
  try {
    for (; foreignLines < maxLateLines; ++foreignLines) {
      if (reportsSimpleProtocol(lineBefore(deadline))) return;
    }
  } catch (const NfcFault& fault) {
    if (fault.kind() != NfcFaultKind::ReaderSilent || foreignLines == 0) throw;
  }
  throw NfcFault(NfcFaultKind::ReaderRefusal,
                 "the device on the port is not a TWN4 reader with Simple Protocol");
}

std::optional<TagUid> Twn4Link::search() {
  return twn4::tagOf(twn4::resultsOf(ask(twn4::searchRequest())));
}

Bytes Twn4Link::ask(std::span<const std::uint8_t> request) {
  isAnswering_ = false;
  send(request);
  const std::string line = lineBefore(Clock::now() + answerTime_);
  isAnswering_ = true;
  return bytesOfHex(line);
}

void Twn4Link::send(std::span<const std::uint8_t> request) {
  input_.clear();
  const std::string text = twn4::lineOf(request);
  const std::vector<std::uint8_t> bytes(text.begin(), text.end());
  onLine([&] {
    line_.discardInput();
    if (line_.write(bytes, Clock::now() + answerTime_) < bytes.size()) throw noAnswer();
  });
}

/// The next line, without its end.
std::string Twn4Link::lineBefore(Clock::time_point deadline) {
  for (;;) {
    const auto end = input_.find(twn4::lineEnd);
    if (end != std::string::npos) {
      std::string line = input_.substr(0, end);
      input_.erase(0, end + 1);
      return line;
    }
    if (input_.size() >= maxLineLength) {
      input_.clear();
      throw NfcFault(NfcFaultKind::Damage, "the reader sends lines without an end");
    }
    std::array<std::uint8_t, maxLineLength> buffer{};
    const std::size_t length = onLine([&] { return line_.read(buffer, deadline); });
    if (length == 0) throw noAnswer();
    input_.append(buffer.begin(), buffer.begin() + length);
  }
}

NfcFault Twn4Link::noAnswer() const {
  return {NfcFaultKind::ReaderSilent,
          "the reader does not answer within " + std::to_string(answerTime_.count()) + " ms"};
}

}  // namespace tessara
