#include "drivers/nfc/NfcSession.h"

#include <exception>
#include <thread>
#include <utility>

#include "drivers/modbus/ModbusFault.h"
#include "drivers/nfc/NfcFault.h"

namespace tessara {

namespace {

/// A stale answer has been thrown away when the request is repeated.
bool isWorthRepeating(const ModbusFault& fault) {
  return fault.isWorthRepeating() || fault.kind() == ModbusFaultKind::Foreign;
}

template <class Fault>
Fault askedTwice(const Fault& fault) {
  return Fault(fault.kind(), std::string(fault.what()) + ", asked twice");
}

}  // namespace

Bytes NfcSession::ask(const ModbusRequest& request) {
  const auto begun = Clock::now();
  const auto mayRepeat = [&] { return Clock::now() < begun + timings_.repeatWithin; };
  try {
    return attempt(request);
  } catch (const NfcFault& fault) {
    if (!fault.isWorthRepeating() || !mayRepeat()) throw;
  } catch (const ModbusFault& fault) {
    if (!isWorthRepeating(fault) || !mayRepeat()) throw;
  }
  std::this_thread::sleep_for(timings_.settling);
  try {
    return attempt(request);
  } catch (const NfcFault& fault) {
    throw askedTwice(fault);
  } catch (const ModbusFault& fault) {
    throw askedTwice(fault);
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
      throw NfcFault(NfcFaultKind::TagGone, "another module lies in the field of the reader now");
    }
    tag_ = found;
  } catch (const NfcFault& fault) {
    if (fault.kind() != NfcFaultKind::NoTag || !tag_) throw;
    throw NfcFault(NfcFaultKind::TagGone, "the module has been taken out of the reader's field");
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
