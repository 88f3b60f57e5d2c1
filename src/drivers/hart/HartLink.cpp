#include "drivers/hart/HartLink.h"

#include <algorithm>
#include <utility>

#include "drivers/hart/HartStatus.h"

namespace tessara {

using namespace std::chrono_literals;

namespace {

constexpr int kMostTries = 4;
constexpr std::size_t kMostPreambles = 40;

/// The shortest look at the line.
constexpr auto kGlance = 1ms;

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

HartLink::HartLink(HartOptions options)
    : timings_(options.timings),
      port_(options.timings, ModemLines(options.carrier, std::move(options.modemLineCall))) {}

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
  const auto patience = Clock::now() + timings_.delayedAnswer;
  for (;;) {
    HartFrame answer = askUntilHeard(request, preambles);
    const HartStatus status = statusOf(answer);
    switch (status.outcome()) {
      case HartOutcome::Success:
      case HartOutcome::Warning:
        return answer;
      case HartOutcome::Delayed:
        if (Clock::now() < patience) break;
        throw HartFault(HartFaultKind::Delay, status.text() + ", for more than " +
                                                  std::to_string(timings_.delayedAnswer.count()) +
                                                  " ms");
      default:
        throw HartFault(HartFaultKind::Refusal, status.text());
    }
  }
}

HartFrame HartLink::askUntilHeard(const HartFrame& request, std::size_t preambles) {
  const auto begun = Clock::now();
  int unanswered = 0;
  for (int tries = 1;; ++tries) {
    try {
      HartFrame answer = exchange(request, preambles);
      const auto now = Clock::now();
      owed_ = Owed{request, unanswered, now + (now - begun)};
      return answer;
    } catch (const HartFault& fault) {
      if (!fault.isWorthRepeating()) throw;
      if (fault.kind() == HartFaultKind::Silence) ++unanswered;
      if (tries == kMostTries) {
        throw HartFault(fault.kind(), std::string(fault.what()) + ", asked " +
                                          std::to_string(kMostTries) + " times");
      }
    }
  }
}

HartFrame HartLink::exchange(const HartFrame& request, std::size_t preambles) {
  awaitTurn(request);
  const auto sent = port_.send(encodeHart(request, preambles));
  isTracking_ = true;
  HartFrame answer = receive(request, sent);
  const HartStatus status = statusOf(answer);
  if (status.outcome() == HartOutcome::CommunicationError) {
    throw HartFault(HartFaultKind::BadlyReceived, "the module reports " + status.text());
  }
  return answer;
}

/// Listens until the line is this master's to use.
void HartLink::awaitTurn(const HartFrame& request) {
  const auto limit = Clock::now() + timings_.noise;
  turn_ = nextTurn();
  bool hasHeard = false;
  while (Clock::now() < limit && hear(Clock::now())) hasHeard = true;
  // How long ago these frames have come is not known any more.
  if (passFrames(request) || (hasHeard && !isTracking_)) {
    turn_ = std::max(turn_, lastByte_ + timings_.linkQuiet);
  }
  for (;;) {
    const auto now = Clock::now();
    const bool isOpen = parser_.isFrameOpen();
    if (now >= turn_ && !isOpen && !isOccupied(turn_) && !isOwed(request)) return;
    if (now >= limit) throw HartFault(HartFaultKind::NoLine, "the line does not fall quiet");
    const auto until = isOpen ? lastByte_ + timings_.gap : std::max(turn_, now + kGlance);
    if (hear(std::min(until, limit))) {
      if (!isTracking_) turn_ = lastByte_ + timings_.linkQuiet;
    } else if (isOpen) {
      parser_.silence();
    }
    passFrames(request);
  }
}

/// Has the frames that have come decide when the line is this master's to use; true if there were
/// any. An answer that is owed to `request` is not owed any more then.
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
HartFrame HartLink::receive(const HartFrame& request, Clock::time_point sent) {
  const auto latest = sent + timings_.linkQuiet + timings_.hostMargin +
                      timings_.characters(kHartLongestFrame + kMostPreambles);
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

/// When the line is this master's to use, if nothing has come since it was last known.
HartLink::Clock::time_point HartLink::nextTurn() const {
  const auto lapsed = turn_ + timings_.hold;
  if (!isTracking_ || Clock::now() <= lapsed) return turn_;
  return lapsed + (isBursting_ ? 2 * timings_.linkQuiet : timings_.linkGrant);
}

bool HartLink::isOwed(const HartFrame& request) const {
  return owed_ && owed_->count > 0 && Clock::now() < owed_->until && owed_->request == request;
}

/// True while the modem hears a carrier. One that has carried nothing for so long is no carrier,
/// but a line of the port that tells nothing.
bool HartLink::isOccupied(Clock::time_point turn) const {
  return Clock::now() < std::max(turn, lastByte_) + timings_.linkQuiet && port_.hearsCarrier();
}

/// Takes what comes before the deadline; false if nothing does.
bool HartLink::hear(Clock::time_point deadline) {
  const auto bytes = port_.receive(deadline);
  if (bytes.empty()) return false;
  lastByte_ = Clock::now();
  parser_.feed(bytes);
  return true;
}

void HartLink::note(const HartReception& reception) {
  if (reception.damage == HartDamage::None && reception.frame.isFromStation()) {
    isBursting_ =
        reception.frame.kind == HartFrameKind::Burst || reception.frame.address.isBursting();
  }
}

}  // namespace tessara
