#include "simulator/nfc/SimulatedTag.h"

#include <algorithm>
#include <array>

#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/TagCommands.h"
#include "simulator/ModbusCodec.h"

namespace tessara {

namespace {

constexpr std::uint8_t kNotRecognised = 0x02;
constexpr std::uint8_t kNotSupported = 0x01;
constexpr std::uint8_t kUnknownError = 0x0F;
constexpr std::uint8_t kBlockNotAvailable = 0x10;

constexpr std::uint8_t kFamily = 0x00;
constexpr std::uint8_t kConfigurationPassword = 0x00;
constexpr std::size_t kPasswordLength = 8;

constexpr std::uint8_t kPutBits = mailboxBits::kModulePut | mailboxBits::kReaderPut;

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
    case tagCommand::kInventory:
      return inventory();
    case tagCommand::kReadBlock:
      return airRefusal(kBlockNotAvailable);
    case tagCommand::kReadConfiguration:
      return readConfiguration(request.data);
    case tagCommand::kWriteConfiguration:
      return writeConfiguration(request.data);
    case tagCommand::kPresentPassword:
      return presentPassword(request.data);
    case tagCommand::kReadDynamic:
      return readDynamic(request.data);
    case tagCommand::kWriteDynamic:
      return writeDynamic(request.data);
    case tagCommand::kWriteMessage:
      return writeMessage(request.data);
    case tagCommand::kReadMessageLength:
      return readMessageLength();
    case tagCommand::kReadMessage:
      return readMessage(request.data);
    default:
      return airRefusal(kNotSupported);
  }
}

AirAnswer SimulatedTag::inventory() const {
  Bytes data{kFamily};
  data.insert(data.end(), uid_.rbegin(), uid_.rend());
  return done(std::move(data));
}

AirAnswer SimulatedTag::readConfiguration(const Bytes& data) const {
  if (data.size() != 1) return airRefusal(kNotRecognised);
  if (data[0] != kMailboxMode) return airRefusal(kBlockNotAvailable);
  return done({static_cast<std::uint8_t>(isMailboxAllowed_)});
}

AirAnswer SimulatedTag::writeConfiguration(const Bytes& data) {
  if (data.size() != 2) return airRefusal(kNotRecognised);
  if (data[0] != kMailboxMode) return airRefusal(kBlockNotAvailable);
  if (!isPasswordPresented_) return airRefusal(kUnknownError);
  allowMailbox((data[1] & 0x01) != 0);
  return done();
}

AirAnswer SimulatedTag::presentPassword(const Bytes& data) {
  if (data.size() != 1 + kPasswordLength) return airRefusal(kNotRecognised);
  const bool isZero = std::all_of(data.begin(), data.end(), [](auto byte) { return byte == 0; });
  isPasswordPresented_ = data[0] == kConfigurationPassword && isZero;
  return isPasswordPresented_ ? done() : airRefusal(kUnknownError);
}

AirAnswer SimulatedTag::readDynamic(const Bytes& data) const {
  if (data.size() != 1) return airRefusal(kNotRecognised);
  if (data[0] != kMailboxControl) return airRefusal(kBlockNotAvailable);
  return done({control()});
}

AirAnswer SimulatedTag::writeDynamic(const Bytes& data) {
  if (data.size() != 2) return airRefusal(kNotRecognised);
  if (data[0] != kMailboxControl) return airRefusal(kBlockNotAvailable);
  setControl(data[1]);
  return done();
}

AirAnswer SimulatedTag::writeMessage(const Bytes& data) {
  if (data.size() < 2 || data.size() != std::size_t{2} + data[0]) {
    return airRefusal(kNotRecognised);
  }
  const bool isFree = (control() & kPutBits) == 0;
  if ((control() & mailboxBits::kEnabled) == 0 || !isFree) return airRefusal(kUnknownError);
  message_.assign(data.begin() + 1, data.end());
  control_ = mailboxBits::kEnabled | mailboxBits::kReaderPut | mailboxBits::kCurrentReader;
  return done();
}

AirAnswer SimulatedTag::readMessageLength() const {
  if ((control() & mailboxBits::kModulePut) == 0) return airRefusal(kUnknownError);
  return done({static_cast<std::uint8_t>(message_.size() - 1)});
}

AirAnswer SimulatedTag::readMessage(const Bytes& data) {
  if (data.size() != 2) return airRefusal(kNotRecognised);
  if ((control() & mailboxBits::kModulePut) == 0) return airRefusal(kUnknownError);
  const std::size_t first = data[0];
  const std::size_t count =
      data[0] == 0 && data[1] == 0 ? message_.size() : std::size_t{1} + data[1];
  if (first + count > message_.size()) return airRefusal(kUnknownError);
  if (first + count == message_.size()) {
    control_ = static_cast<std::uint8_t>(control_ & ~mailboxBits::kModulePut);
  }
  const auto begin = message_.begin() + static_cast<std::ptrdiff_t>(first);
  return done(Bytes(begin, begin + static_cast<std::ptrdiff_t>(count)));
}

std::uint8_t SimulatedTag::control() const {
  if (!isBlocked_) return control_;
  return mailboxBits::kEnabled | mailboxBits::kReaderPut | mailboxBits::kCurrentReader;
}

void SimulatedTag::setControl(std::uint8_t control) {
  const bool isEnabled = isMailboxAllowed_ && (control & mailboxBits::kEnabled) != 0;
  const bool wasEnabled = (control_ & mailboxBits::kEnabled) != 0;
  if (isEnabled == wasEnabled) return;
  control_ = isEnabled ? mailboxBits::kEnabled : 0;
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
  if (!hasTime || (control_ & mailboxBits::kReaderPut) == 0) return;
  fetch(now);
  putAnswer(now);
}

/// The module puts the next part of its answer, if it is ready and there is room.
void SimulatedTag::putAnswer(Clock::time_point now) {
  if (answer_.empty() || now < answerDue_) return;
  const bool isEnabled = (control_ & mailboxBits::kEnabled) != 0;
  if (!isEnabled || (control_ & mailboxBits::kReaderPut) != 0) {
    answer_.clear();
  } else if ((control_ & mailboxBits::kModulePut) == 0) {
    message_ = std::move(answer_.front());
    answer_.pop_front();
    control_ = mailboxBits::kEnabled | mailboxBits::kModulePut | mailboxBits::kCurrentModule;
  }
}

/// The module takes the message, and, if a request is complete with it, begins to work on that.
void SimulatedTag::fetch(Clock::time_point now) {
  control_ = static_cast<std::uint8_t>(control_ & ~mailboxBits::kReaderPut);
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
