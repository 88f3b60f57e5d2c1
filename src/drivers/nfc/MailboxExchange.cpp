#include "drivers/nfc/MailboxExchange.h"

#include <algorithm>

#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/TagCommands.h"

namespace tessara {

using namespace std::chrono_literals;

namespace {

constexpr std::uint8_t mailboxOff = 0x00;

std::string text(std::chrono::milliseconds duration) {
  return std::to_string(duration.count()) + " ms";
}

std::uint8_t onlyByte(std::span<const std::uint8_t> data) {
  if (data.size() != 1) {
    throw NfcFault(NfcFaultKind::Damage, "an answer of the tag has " + std::to_string(data.size()) +
                                             " data bytes instead of 1");
  }
  return data.front();
}

}  // namespace

MailboxExchange::MailboxExchange(std::span<const std::uint8_t> frame, const MailboxTimings& timings,
                                 Clock::time_point now, bool isOpen)
    : timings_(timings), pieces_(piecesOf(frame)), isOpen_(isOpen), waitingSince_(now) {}

AirRequest MailboxExchange::request() const {
  switch (state_) {
    case State::Disable:
      return writeControlRequest(mailboxOff);
    case State::Enable:
      return writeControlRequest(mailboxBits::enabled);
    case State::Write:
      return writeMessageRequest(pieces_[written_]);
    case State::Measure:
      return messageLengthRequest();
    case State::Read:
      return readMessageRequest(message_.size(),
                                std::min(maxPieceLength, messageLength_ - message_.size()));
    default:
      return readControlRequest();
  }
}

std::chrono::milliseconds MailboxExchange::pause(Clock::time_point now) const {
  const bool isWaiting = state_ == State::AwaitFree || state_ == State::AwaitAnswer;
  const auto waited = std::chrono::duration_cast<std::chrono::milliseconds>(now - waitingSince_);
  if (!isWaiting || waited < 1ms) return 0ms;
  return std::clamp<std::chrono::milliseconds>(waited / 10, 1ms, 50ms);
}

void MailboxExchange::answered(std::span<const std::uint8_t> data, Clock::time_point now) {
  switch (state_) {
    case State::Disable:
      state_ = State::Enable;
      break;
    case State::Enable:
      isEnabled_ = true;
      state_ = State::AwaitFree;
      break;
    case State::Write:
      noteWritten(now);
      break;
    case State::Measure:
      messageLength_ = std::size_t{1} + onlyByte(data);
      message_.clear();
      state_ = State::Read;
      break;
    case State::Read:
      noteFetched(data, now);
      break;
    default:
      noteControl(onlyByte(data), now);
  }
}

void MailboxExchange::refused(const std::string& why, Clock::time_point now) {
  switch (state_) {
    case State::Write:
      // The module has put something first.
      state_ = State::AwaitFree;
      noteOccupied(mailboxBits::readerPut, now);
      break;
    case State::Measure:
    case State::Read:
      // The message has gone before it was fetched.
      requireTimeForAnswer(now);
      state_ = State::AwaitAnswer;
      break;
    default:
      throw NfcFault(NfcFaultKind::TagRefusal, "the module gives no access to its mailbox: " + why);
  }
}

void MailboxExchange::noteControl(std::uint8_t control, Clock::time_point now) {
  if ((control & mailboxBits::enabled) == 0) {
    if (isEnabled_ && !hasBegunToWrite()) {
      throw NfcFault(NfcFaultKind::MailboxOff, "the module does not allow its mailbox to be used");
    }
    if (hasBegunToWrite() || isOpen_) {
      throw NfcFault(NfcFaultKind::TagGone,
                     "the module's mailbox was switched off during the exchange");
    }
    state_ = State::Enable;
    return;
  }
  const bool isModulePut = (control & mailboxBits::modulePut) != 0;
  const bool isReaderPut = (control & mailboxBits::readerPut) != 0;
  if (hasBegunToWrite() && isModulePut) {
    state_ = State::Measure;
  } else if (state_ == State::AwaitAnswer) {
    isFetched_ = !isReaderPut;
    requireTimeForAnswer(now);
  } else if (!isModulePut && !isReaderPut) {
    state_ = State::Write;
  } else {
    noteOccupied(control, now);
  }
}

/// The mailbox should take a piece and does not.
void MailboxExchange::noteOccupied(std::uint8_t control, Clock::time_point now) {
  if (hasBegunToWrite()) return requireTimeForAnswer(now);
  const bool isPatienceOver = now >= waitingSince_ + timings_.free;
  if (isPatienceOver && isEmptied_) {
    throw NfcFault(
        NfcFaultKind::MailboxBusy,
        "the module's mailbox is busy: it took no message for " + text(2 * timings_.free));
  }
  if (isPatienceOver) {
    isEmptied_ = true;
    waitingSince_ = now;
    state_ = State::Disable;
  } else if ((control & mailboxBits::modulePut) != 0) {
    // An unfetched answer to an earlier request.
    state_ = State::Disable;
  }
}

void MailboxExchange::noteWritten(Clock::time_point now) {
  ++written_;
  waitingSince_ = now;
  state_ = written_ == pieces_.size() ? State::AwaitAnswer : State::AwaitFree;
}

void MailboxExchange::noteFetched(std::span<const std::uint8_t> data, Clock::time_point now) {
  const std::size_t wanted = std::min(maxPieceLength, messageLength_ - message_.size());
  if (data.size() != wanted) {
    throw NfcFault(NfcFaultKind::Damage, "the tag gave " + std::to_string(data.size()) +
                                             " bytes of a message instead of " +
                                             std::to_string(wanted));
  }
  message_.insert(message_.end(), data.begin(), data.end());
  if (message_.size() < messageLength_) return;
  if (auto frame = assembler_.add(message_)) {
    answer_ = std::move(*frame);
    state_ = State::Done;
    return;
  }
  requireTimeForAnswer(now);
  state_ = State::AwaitAnswer;
}

void MailboxExchange::requireTimeForAnswer(Clock::time_point now) const {
  if (now < waitingSince_ + timings_.answer) return;
  throw NfcFault(NfcFaultKind::ModuleSilent,
                 (isFetched_ ? "the module fetched the request from its mailbox but did not answer "
                             : "the module did not fetch the request from its mailbox ") +
                     ("within " + text(timings_.answer)));
}

}  // namespace tessara
