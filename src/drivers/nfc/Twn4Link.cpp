#include "drivers/nfc/Twn4Link.h"

#include <cerrno>

#include <asio/buffer.hpp>
#include <asio/error.hpp>
#include <asio/read_until.hpp>
#include <asio/write.hpp>
#include <termios.h>

#include "drivers/modbus/SerialSettings.h"
#include "drivers/nfc/HexText.h"
#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/Twn4.h"

namespace tessara {

namespace {

/// A line is at most the digits of status, truth value, length and 255 bytes, and its end.
constexpr std::size_t kLongestLine = 2 * (3 + 255) + 1;

/// Far more lines than a reader can owe to anybody: what sends as many is none, and might go on.
constexpr int kMostLateLines = 1000;

/// Raw bytes of 8 data bits, no parity and one stop bit.
void setUp(int descriptor, ::speed_t speed) {
  ::termios settings{};
  if (::tcgetattr(descriptor, &settings) != 0) throw PortError::fromErrno(errno);
  ::cfmakeraw(&settings);
  settings.c_iflag &= ~static_cast<::tcflag_t>(IXOFF | IXANY);
  settings.c_cflag &= ~static_cast<::tcflag_t>(CSTOPB | PARENB | CRTSCTS);
  settings.c_cflag |= CREAD | CLOCAL;
  ::cfsetspeed(&settings, speed);
  if (::tcsetattr(descriptor, TCSANOW, &settings) != 0) throw PortError::fromErrno(errno);
}

/// True for the line by which a reader answers versionRequest as it should.
bool tellsSimpleProtocol(const std::string& line) {
  try {
    return twn4::isSimpleProtocol(twn4::versionOf(twn4::resultsOf(bytesOfHex(line))));
  } catch (const NfcFault&) {
    return false;
  }
}

NfcFault readerHasGone() {
  return {NfcFaultKind::NoReader, "the reader has been unplugged"};
}

}  // namespace

Twn4Link::Twn4Link(const std::string& device, std::int32_t rate,
                   std::chrono::milliseconds answerTime)
    : answerTime_(answerTime), port_(device), stream_(context_) {
  setUp(port_.descriptor(), speedOf(rate).value_or(B115200));
  stream_.assign(port_.descriptor());
}

Twn4Link::~Twn4Link() {
  try {
    if (isAnswering_) ask(twn4::fieldOffRequest());
  } catch (const NfcFault&) {
    // A reader that has just gone has no field either.
  }
  // The descriptor is the lock's to close.
  stream_.release();
}

TagUid Twn4Link::selectTag() {
  isAnswering_ = false;
  requireSimpleProtocol();
  twn4::resultsOf(ask(twn4::tagTypesRequest()));
  const auto uid = search();
  if (!uid) throw NfcFault(NfcFaultKind::NoTag, "no module lies in the field of the reader");
  return *uid;
}

Bytes Twn4Link::exchange(const AirRequest& request) {
  const Bytes answer = ask(twn4::airRequest(encodeAirRequest(request)));
  if (auto data = twn4::tagDataOf(twn4::resultsOf(answer))) return *std::move(data);
  // The reader makes no difference between a tag that refuses and one that has gone.
  if (search()) {
    throw NfcFault(NfcFaultKind::TagRefusal, "the tag refuses, or cannot be understood");
  }
  throw NfcFault(NfcFaultKind::TagGone, "no answer from a tag");
}

/// Lines that come before the version are late answers to others.
void Twn4Link::requireSimpleProtocol() {
  send(twn4::versionRequest());
  const auto deadline = Clock::now() + answerTime_;
  int foreignLines = 0;
  try {
    for (; foreignLines < kMostLateLines; ++foreignLines) {
      if (tellsSimpleProtocol(lineBefore(deadline))) return;
    }
  } catch (const NfcFault& fault) {
    if (fault.kind() != NfcFaultKind::ReaderSilent || foreignLines == 0) throw;
  }
  throw NfcFault(NfcFaultKind::ReaderRefusal,
                 "what is on the port is no TWN4 reader with Simple Protocol");
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
  ::tcflush(port_.descriptor(), TCIFLUSH);
  input_.clear();
  const std::string line = twn4::lineOf(request);
  runBefore(Clock::now() + answerTime_, [&](auto handler) {
    asio::async_write(stream_, asio::buffer(line), std::move(handler));
  });
}

std::string Twn4Link::lineBefore(Clock::time_point deadline) {
  runBefore(deadline, [&](auto handler) {
    asio::async_read_until(stream_, asio::dynamic_buffer(input_, kLongestLine), twn4::kLineEnd,
                           std::move(handler));
  });
  const auto end = input_.find(twn4::kLineEnd);
  std::string line = input_.substr(0, end);
  input_.erase(0, end + 1);
  return line;
}

/// Runs what `start` starts, and throws if it fails or is not done at `deadline`.
template <class Start>
void Twn4Link::runBefore(Clock::time_point deadline, Start start) {
  std::optional<asio::error_code> outcome;
  start([&outcome](const asio::error_code& error, std::size_t) { outcome = error; });
  context_.restart();
  context_.run_until(deadline);
  if (!outcome) {
    stream_.cancel();
    context_.run();
    if (outcome == asio::error::operation_aborted) {
      throw NfcFault(NfcFaultKind::ReaderSilent, "the reader does not answer within " +
                                                     std::to_string(answerTime_.count()) + " ms");
    }
  }
  if (outcome == asio::error::not_found) {
    input_.clear();
    throw NfcFault(NfcFaultKind::Damage, "the reader sends lines without an end");
  }
  if (*outcome) throw readerHasGone();
}

}  // namespace tessara
