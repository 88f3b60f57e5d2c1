#include "drivers/nfc/NfcSession.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "drivers/modbus/ModbusFault.h"
#include "drivers/nfc/NfcFault.h"

namespace tessara {

namespace {

/// A stale answer has been discarded when the request is repeated.
bool isWorthRepeating(const ModbusFault& fault) {
  return fault.isWorthRepeating() || fault.kind() == ModbusFaultKind::Foreign;
}

template <class Fault>
Fault askedTwice(const Fault& fault) {
  return Fault(fault.kind(), std::string(fault.what()) + ", asked twice");
}

}  // namespace

Bytes NfcSession::ask(const ModbusRequest& request) {
  const auto end = Clock::now() + timings_.repeatWithin;
  try {
    return attemptUntilFree(request, end);
  } catch (const NfcFault& fault) {
    if (!fault.isWorthRepeating() || Clock::now() >= end) throw;
  } catch (const ModbusFault& fault) {
    if (!isWorthRepeating(fault) || Clock::now() >= end) throw;
  }
  std::this_thread::sleep_for(timings_.settling);
  try {
    return attemptUntilFree(request, end);
  } catch (const NfcFault& fault) {
    throw askedTwice(fault);
  } catch (const ModbusFault& fault) {
    if (fault.kind() == ModbusFaultKind::Busy) throw;
    throw askedTwice(fault);
  }
}

/// Repeats the request as long as the module answers that it is busy, but not at or after `end`.
Bytes NfcSession::attemptUntilFree(const ModbusRequest& request, Clock::time_point end) {
  std::optional<Clock::time_point> busyUntil;
  for (;;) {
    try {
      return attempt(request);
    } catch (const ModbusFault& fault) {
      if (fault.kind() != ModbusFaultKind::Busy) throw;
      const auto next = Clock::now() + timings_.busyPause;
      if (!busyUntil) busyUntil = std::min(Clock::now() + timings_.mailbox.answer, end);
      if (next >= *busyUntil) {
        throw ModbusFault(fault.kind(), std::string(fault.what()) + ", asked for " +
                                            std::to_string(timings_.mailbox.answer.count()) +
                                            " ms");
      }
    }
    std::this_thread::sleep_for(timings_.busyPause);
  }
}

Bytes NfcSession::attempt(const ModbusRequest& request) {
  const bool isOpen = std::exchange(isOpen_, false);
  if (!isOpen) findTag();
  const Bytes frame = exchange(frameOf(request), isOpen);
  if (!holdsWholeFrame(frame)) {
    throw ModbusFault(ModbusFaultKind::Damage, "checksum error in the module's answer");
  }
  isOpen_ = true;
  const auto data = request.dataOf(frame);
  return {data.begin(), data.end()};
}

void NfcSession::findTag() {
  try {
    const TagUid found = link_->selectTag();
    if (tag_.value_or(found) != found) {
      throw NfcFault(NfcFaultKind::TagGone, "another module is in the reader's field now");
    }
    tag_ = found;
  } catch (const NfcFault& fault) {
    if (fault.kind() != NfcFaultKind::NoTag || !tag_) throw;
    throw NfcFault(NfcFaultKind::TagGone, "the module has been removed from the reader's field");
  }
}

Bytes NfcSession::exchange(std::span<const std::uint8_t> frame, bool isOpen) {
  MailboxExchange mailbox(frame, timings_.mailbox, Clock::now(), isOpen);
  while (!mailbox.isDone()) {
    std::this_thread::sleep_for(mailbox.pause(Clock::now()));
    try {
      mailbox.answered(link_->exchange(mailbox.request()), Clock::now());
    } catch (const NfcFault& fault) {
      if (fault.kind() != NfcFaultKind::TagRefusal) throw;
      mailbox.refused(fault.what(), Clock::now());
    }
  }
  return mailbox.answer();
}

}  // namespace tessara
