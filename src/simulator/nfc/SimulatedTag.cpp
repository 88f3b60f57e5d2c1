#include "simulator/nfc/SimulatedTag.h"

#include <algorithm>
#include <array>

#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/TagCommands.h"
#include "simulator/ModbusCodec.h"

namespace tessara {

namespace {

constexpr std::uint8_t notRecognised = 0x02;
constexpr std::uint8_t notSupported = 0x01;
constexpr std::uint8_t unknownError = 0x0F;
constexpr std::uint8_t blockNotAvailable = 0x10;

constexpr std::uint8_t familyByte = 0x00;
constexpr std::uint8_t configurationPassword = 0x00;
constexpr std::size_t passwordLength = 8;

constexpr std::uint8_t putBits = mailboxBits::modulePut | mailboxBits::readerPut;

AirAnswer done(Bytes data = {}) {
  return {0x00, std::move(data)};
}

}  // namespace

std::optional<AirAnswer> SimulatedTag::answer(const AirRequest& request, Clock::time_point now) {
  if (isAddressed(request) && request.uid != uid_) return std::nullopt;
  letModuleWork(now);
  AirAnswer answer = execute(request);
  letModuleWork(now);
  return answer;
}

AirAnswer SimulatedTag::execute(const AirRequest& request) {
  switch (request.command) {
    case tagCommand::inventory:
      return inventory();
    case tagCommand::readBlock:
      return airRefusal(blockNotAvailable);
    case tagCommand::readConfiguration:
      return readConfiguration(request.data);
    case tagCommand::writeConfiguration:
      return writeConfiguration(request.data);
    case tagCommand::presentPassword:
      return presentPassword(request.data);
    case tagCommand::readDynamic:
      return readDynamic(request.data);
    case tagCommand::writeDynamic:
      return writeDynamic(request.data);
    case tagCommand::writeMessage:
      return writeMessage(request.data);
    case tagCommand::readMessageLength:
      return readMessageLength();
    case tagCommand::readMessage:
      return readMessage(request.data);
    default:
      return airRefusal(notSupported);
  }
}

AirAnswer SimulatedTag::inventory() const {
  Bytes data{familyByte};
  data.insert(data.end(), uid_.rbegin(), uid_.rend());
  return done(std::move(data));
}

AirAnswer SimulatedTag::readConfiguration(const Bytes& data) const {
  if (data.size() != 1) return airRefusal(notRecognised);
  if (data[0] != mailboxMode) return airRefusal(blockNotAvailable);
  return done({static_cast<std::uint8_t>(isMailboxAllowed_)});
}

AirAnswer SimulatedTag::writeConfiguration(const Bytes& data) {
  if (data.size() != 2) return airRefusal(notRecognised);
  if (data[0] != mailboxMode) return airRefusal(blockNotAvailable);
  if (!isPasswordPresented_) return airRefusal(unknownError);
  allowMailbox((data[1] & 0x01) != 0);
  return done();
}

AirAnswer SimulatedTag::presentPassword(const Bytes& data) {
  if (data.size() != 1 + passwordLength) return airRefusal(notRecognised);
  const bool isZero = std::all_of(data.begin(), data.end(), [](auto byte) { return byte == 0; });
  isPasswordPresented_ = data[0] == configurationPassword && isZero;
  return isPasswordPresented_ ? done() : airRefusal(unknownError);
}

AirAnswer SimulatedTag::readDynamic(const Bytes& data) const {
  if (data.size() != 1) return airRefusal(notRecognised);
  if (data[0] != mailboxControl) return airRefusal(blockNotAvailable);
  return done({control()});
}

AirAnswer SimulatedTag::writeDynamic(const Bytes& data) {
  if (data.size() != 2) return airRefusal(notRecognised);
  if (data[0] != mailboxControl) return airRefusal(blockNotAvailable);
  setControl(data[1]);
  return done();
}

AirAnswer SimulatedTag::writeMessage(const Bytes& data) {
  if (data.size() < 2 || data.size() != std::size_t{2} + data[0]) {
    return airRefusal(notRecognised);
  }
  const bool isFree = (control() & putBits) == 0;
  if ((control() & mailboxBits::enabled) == 0 || !isFree) return airRefusal(unknownError);
  message_.assign(data.begin() + 1, data.end());
  control_ = mailboxBits::enabled | mailboxBits::readerPut | mailboxBits::currentReader;
  return done();
}

AirAnswer SimulatedTag::readMessageLength() const {
  if ((control() & mailboxBits::modulePut) == 0) return airRefusal(unknownError);
  return done({static_cast<std::uint8_t>(message_.size() - 1)});
}

AirAnswer SimulatedTag::readMessage(const Bytes& data) {
  if (data.size() != 2) return airRefusal(notRecognised);
  if ((control() & mailboxBits::modulePut) == 0) return airRefusal(unknownError);
  const std::size_t first = data[0];
  const std::size_t count =
      data[0] == 0 && data[1] == 0 ? message_.size() : std::size_t{1} + data[1];
  if (first + count > message_.size()) return airRefusal(unknownError);
  if (first + count == message_.size()) {
    control_ = static_cast<std::uint8_t>(control_ & ~mailboxBits::modulePut);
  }
  const auto begin = message_.begin() + static_cast<std::ptrdiff_t>(first);
  return done(Bytes(begin, begin + static_cast<std::ptrdiff_t>(count)));
}

std::uint8_t SimulatedTag::control() const {
  if (!isBlocked_) return control_;
  return mailboxBits::enabled | mailboxBits::readerPut | mailboxBits::currentReader;
}

void SimulatedTag::setControl(std::uint8_t control) {
  const bool isEnabled = isMailboxAllowed_ && (control & mailboxBits::enabled) != 0;
  const bool wasEnabled = (control_ & mailboxBits::enabled) != 0;
  if (isEnabled == wasEnabled) return;
  control_ = isEnabled ? mailboxBits::enabled : 0;
  request_ = {};
}

void SimulatedTag::losePower() {
  setControl(0);
  isPasswordPresented_ = false;
}

void SimulatedTag::allowMailbox(bool isAllowed) {
  isMailboxAllowed_ = isAllowed;
  if (!isAllowed) setControl(0);
}

void SimulatedTag::letModuleWork(Clock::time_point now) {
  putAnswer(now);
  const bool hasTime = answer_.empty() && !isAsleep_;
  if (!hasTime || (control_ & mailboxBits::readerPut) == 0) return;
  fetch(now);
  putAnswer(now);
}

/// The module puts the next part of its answer, if it is ready and there is room.
void SimulatedTag::putAnswer(Clock::time_point now) {
  if (answer_.empty() || now < answerDue_) return;
  const bool isEnabled = (control_ & mailboxBits::enabled) != 0;
  if (!isEnabled || (control_ & mailboxBits::readerPut) != 0) {
    answer_.clear();
  } else if ((control_ & mailboxBits::modulePut) == 0) {
    message_ = std::move(answer_.front());
    answer_.pop_front();
    control_ = mailboxBits::enabled | mailboxBits::modulePut | mailboxBits::currentModule;
  }
}

/// The module takes the message, and, if a request is complete with it, begins to work on that.
void SimulatedTag::fetch(Clock::time_point now) {
  control_ = static_cast<std::uint8_t>(control_ & ~mailboxBits::readerPut);
  std::optional<Bytes> frame;
  try {
    frame = request_.add(message_);
  } catch (const NfcFault&) {
    // A request in pieces of which one is missing is as good as none.
  }
  const auto request = decodeModbusRequest(frame.value_or(Bytes()));
  if (!request || request->address != module_.address()) return;
  const SimulatedAnswer answer = module_.answer(*request);
  unplug_ = answer.unplug;
  if (answer.bytes.empty()) return;
  const auto pieces = piecesOf(answer.bytes);
  answer_.assign(pieces.begin(), pieces.end());
  answerDue_ = now + answer.delay;
}

}  // namespace tessara
