#include "simulator/nfc/SimulatedField.h"

#include <utility>

namespace tessara {

namespace {

using Clock = SimulatedField::Clock;

Clock::time_point endOf(const std::optional<std::chrono::milliseconds>& duration,
                        Clock::time_point begin) {
  return duration ? begin + *duration : Clock::time_point::max();
}

}  // namespace

/// Applies faults to the field and to the outcome of one request.
struct SimulatedField::Spoiler {
  SimulatedField& field;
  FieldOutcome& outcome;
  bool& isHeard;
  Clock::time_point now;

  void operator()(const fieldFaults::TagAbsent& /*fault*/) const { isHeard = false; }
  void operator()(const fieldFaults::TagLeaves& fault) const {
    field.absentUntil_ = endOf(fault.returnAfter, now);
    field.tag_.losePower();
  }
  void operator()(const fieldFaults::AirChecksum& /*fault*/) const { outcome.isDamaged = true; }
  void operator()(const fieldFaults::ReaderError& fault) const { outcome.readerError = fault.code; }
  void operator()(const fieldFaults::ReaderSilent& /*fault*/) const {
    outcome.isReaderSilent = true;
  }
  void operator()(const fieldFaults::MailboxBusy& fault) const {
    field.blockedUntil_ = endOf(fault.duration, now);
  }
  void operator()(const fieldFaults::MailboxOff& /*fault*/) const {
    field.tag_.allowMailbox(false);
  }
  void operator()(const fieldFaults::ModuleAsleep& fault) const {
    field.asleepUntil_ = endOf(fault.duration, now);
  }
};

SimulatedField::SimulatedField(SimulatedNfcModule module)
    : tag_(std::move(module.module), module.uid) {
  setFaults(module.faults);
}

void SimulatedField::setFaults(const std::vector<FieldFault>& faults) {
  faults_.clear();
  for (const FieldFault& fault : faults) {
    checkTrigger(fault.trigger);
    faults_.push_back({fault.effect, FaultClock(fault.trigger)});
  }
  requests_ = 0;
  absentUntil_.reset();
  blockedUntil_.reset();
  asleepUntil_.reset();
  tag_.allowMailbox(true);
}

void SimulatedField::replaceTag(SimulatedNfcModule module) {
  tag_ = SimulatedTag(std::move(module.module), module.uid);
}

FieldOutcome SimulatedField::send(const AirRequest& request, Clock::time_point now) {
  ++requests_;
  FieldOutcome outcome;
  bool isHeard = true;
  for (Ordered& fault : faults_) {
    if (fault.clock.fallsOn(requests_)) {
      std::visit(Spoiler{*this, outcome, isHeard, now}, fault.effect);
    }
  }
  follow(now);
  if (isHeard && !absentUntil_ && !outcome.readerError) outcome.answer = tag_.answer(request, now);
  return outcome;
}

/// Ends the effects whose time is over.
void SimulatedField::follow(Clock::time_point now) {
  for (auto* end : {&absentUntil_, &blockedUntil_, &asleepUntil_}) {
    if (*end && now >= **end) end->reset();
  }
  tag_.blockMailbox(blockedUntil_.has_value());
  tag_.sendModuleToSleep(asleepUntil_.has_value());
}

}  // namespace tessara
