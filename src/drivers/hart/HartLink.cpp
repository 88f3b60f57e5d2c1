#include "drivers/hart/HartLink.h"

#include <algorithm>
#include <utility>

#include "drivers/hart/HartStatus.h"

namespace tessara {

using namespace std::chrono_literals;

namespace {

constexpr int maxTries = 3;

/// The shortest wait for input.
constexpr auto minWait = 1ms;

HartStatus statusOf(const HartFrame& answer) {
  return HartStatus({answer.data[0], answer.data[1]});
}

HartFault damageFault(HartDamage damage) {
  switch (damage) {
    case HartDamage::BrokenOff:
      return {HartFaultKind::Damage, "the answer broke off"};
    case HartDamage::ByteCount:
      return {HartFaultKind::Damage, "the answer is too short"};
    default:
      return {HartFaultKind::Damage, "the answer has a wrong check byte"};
  }
}

}  // namespace

void HartLink::open(const std::string& device) {
  close();
  port_.open(device);
  parser_.reset();
  isTracking_ = false;
  isBursting_ = false;
  lastByte_ = Clock::now();
  turn_ = lastByte_ + timings_.linkQuiet;
}

void HartLink::close() noexcept {
  port_.close();
}

HartFrame HartLink::ask(const HartFrame& request, std::size_t preambles) {
  if (!port_.isOpen()) throw HartFault(HartFaultKind::NoLine, "no connection is open");
  const auto end = Clock::now() + timings_.delayedAnswer;
  std::optional<HartFault> delay;
  for (;;) {
    const auto begun = Clock::now();
    HartFrame answer;
    try {
      answer = askUntilHeard(request, preambles, delay ? end : Clock::time_point::max());
    } catch (const HartFault&) {
      if (delay && Clock::now() >= end) throw *delay;
      throw;
    }
    const HartStatus status = statusOf(answer);
    switch (status.outcome()) {
      case HartOutcome::Success:
      case HartOutcome::Warning:
        return answer;
      case HartOutcome::Delayed:
        delay = HartFault(HartFaultKind::Delay, status.text() + ", awaited for up to " +
                                                    std::to_string(timings_.delayedAnswer.count()) +
                                                    " ms");
        break;
      default:
        throw HartFault(HartFaultKind::Refusal, status.text());
    }
    // The next exchange is expected to take as long as this one.
    const auto now = Clock::now();
    if (now + (now - begun) > end) throw *delay;
  }
}

/// Sends the request until it has an undamaged answer, but not beyond `deadline`.
HartFrame HartLink::askUntilHeard(const HartFrame& request, std::size_t preambles,
                                  Clock::time_point deadline) {
  const auto begun = Clock::now();
  int unanswered = 0;
  for (int tries = 1;; ++tries) {
    try {
      HartFrame answer = exchange(request, preambles, deadline);
      const auto now = Clock::now();
      owed_ = Owed{request, unanswered, now + (now - begun)};
      return answer;
    } catch (const HartFault& fault) {
      if (!fault.isWorthRepeating() || Clock::now() >= deadline) throw;
      if (fault.kind() == HartFaultKind::Silence) ++unanswered;
      if (tries == maxTries) {
        throw HartFault(fault.kind(), std::string(fault.what()) + ", asked " +
                                          std::to_string(maxTries) + " times");
      }
    }
  }
}

HartFrame HartLink::exchange(const HartFrame& request, std::size_t preambles,
                             Clock::time_point deadline) {
  awaitTurn(request, deadline);
  const auto sent = port_.send(encodeHart(request, preambles));
  isTracking_ = true;
  HartFrame answer = receive(request, sent, deadline);
  const HartStatus status = statusOf(answer);
  if (status.outcome() == HartOutcome::CommunicationError) {
    throw HartFault(HartFaultKind::BadlyReceived, "the module reports " + status.text());
  }
  return answer;
}

/// Listens until this master may send.
void HartLink::awaitTurn(const HartFrame& request, Clock::time_point deadline) {
  const auto limit = std::min(Clock::now() + timings_.noise, deadline);
  turn_ = nextTurn();
  bool hasHeard = false;
  while (Clock::now() < limit && hear(Clock::now())) hasHeard = true;
  // How long ago these frames came is no longer known.
  if (passFrames(request) || (hasHeard && !isTracking_)) {
    turn_ = std::max(turn_, lastByte_ + timings_.linkQuiet);
  }
  for (;;) {
    const auto now = Clock::now();
    const bool isOpen = parser_.isFrameOpen();
    if (now >= turn_ && !isOpen && !isOccupied(turn_) && !isOwed(request)) return;
    if (now >= limit) throw HartFault(HartFaultKind::NoLine, "the line does not fall quiet");
    const auto until = isOpen ? lastByte_ + timings_.gap : std::max(turn_, now + minWait);
    if (hear(std::min(until, limit))) {
      if (!isTracking_) turn_ = lastByte_ + timings_.linkQuiet;
    } else if (isOpen) {
      parser_.silence();
    }
    passFrames(request);
  }
}

/// Lets the frames that have come decide when this master may send; true if there were any. An
/// answer that is owed to `request` is no longer owed then.
bool HartLink::passFrames(const HartFrame& request) {
  bool wereThere = false;
  while (const auto reception = parser_.next()) {
    wereThere = true;
    note(*reception);
    turn_ = Clock::now() + hartPauseAfter(*reception, isBursting_, timings_);
    if (isOwed(request) && isHartAnswer(reception->frame, request)) --owed_->count;
  }
  return wereThere;
}

/// Listens for the answer to a request whose last character has left at `sent`.
HartFrame HartLink::receive(const HartFrame& request, Clock::time_point sent,
                            Clock::time_point deadline) {
  const Clock::time_point latest =
      std::min(deadline, sent + timings_.linkQuiet + timings_.hostMargin +
                             timings_.characters(maxHartFrame + maxHartPreambles));
  auto beginning = sent + timings_.linkQuiet + timings_.hostMargin;
  HartFault outcome(HartFaultKind::Silence,
                    "no answer within " + std::to_string(timings_.linkQuiet.count()) + " ms");
  for (;;) {
    while (const auto reception = parser_.next()) {
      note(*reception);
      if (reception->damage != HartDamage::None) {
        outcome = damageFault(reception->damage);
      } else if (isHartAnswer(reception->frame, request)) {
        turn_ = lastByte_ + hartPauseAfter(*reception, isBursting_, timings_);
        return reception->frame;
      } else if (reception->frame == request) {
        continue;  // an echo
      } else if (const auto mismatch = hartMismatch(reception->frame, request)) {
        outcome = HartFault(HartFaultKind::Silence, *mismatch);
      }
      beginning = lastByte_ + timings_.linkQuiet + timings_.hostMargin;
    }
    const bool isOpen = parser_.isFrameOpen();
    const auto pause = lastByte_ + timings_.gap;
    const auto until = isOpen ? pause : std::max(beginning, lastByte_ > sent ? pause : sent);
    if (Clock::now() < latest && hear(std::min(until, latest))) continue;
    if (!isOpen) {
      turn_ = Clock::now();
      throw HartFault(outcome);
    }
    parser_.silence();
  }
}

/// When this master may send, if nothing has come since that was last known.
HartLink::Clock::time_point HartLink::nextTurn() const {
  const auto lapsed = turn_ + timings_.hold;
  if (!isTracking_ || Clock::now() <= lapsed) return turn_;
  return lapsed + (isBursting_ ? 2 * timings_.linkQuiet : timings_.linkGrant);
}

bool HartLink::isOwed(const HartFrame& request) const {
  return owed_ && owed_->count > 0 && Clock::now() < owed_->until && owed_->request == request;
}

/// True while the modem hears a carrier. A carrier that brings nothing for this long is not one:
/// the port's line says nothing then.
bool HartLink::isOccupied(Clock::time_point turn) const {
  return Clock::now() < std::max(turn, lastByte_) + timings_.linkQuiet && port_.hearsCarrier();
}

/// Takes what comes before the deadline; false if nothing comes.
bool HartLink::hear(Clock::time_point deadline) {
  const auto bytes = port_.receive(deadline);
  if (bytes.empty()) return false;
  lastByte_ = Clock::now();
  parser_.feed(bytes);
  return true;
}

void HartLink::note(const HartReception& reception) {
  if (reception.damage == HartDamage::None && reception.frame.isFromModule()) {
    isBursting_ =
        reception.frame.kind == HartFrameKind::Burst || reception.frame.address.isBursting();
  }
}

}  // namespace tessara
