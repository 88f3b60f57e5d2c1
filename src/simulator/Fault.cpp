#include "simulator/Fault.h"

#include <algorithm>
#include <stdexcept>

namespace tessara {

namespace {

/// Applies effects to the answer of a request.
struct Spoiler {
  const MasterRequest& request;
  SimulatedAnswer& answer;

  void operator()(const faults::ExceptionReply& fault) const {
    answer.bytes = modbusExceptionFrame(request.address, request.function, fault.code);
  }
  void operator()(const faults::WrongAddress& fault) const {
    answer.bytes.resize(answer.bytes.size() - 2);
    answer.bytes.front() = fault.address;
    answer.bytes = withModbusCrc(std::move(answer.bytes));
  }
  void operator()(const faults::BadChecksum& /*fault*/) const {
    answer.bytes.back() = static_cast<std::uint8_t>(~answer.bytes.back());
  }
  void operator()(const faults::CutOff& fault) const { keep(fault.bytes); }
  void operator()(const faults::Unplug& fault) const {
    answer.unplug = fault;
    if (fault.bytes) keep(*fault.bytes);
  }
  void operator()(const faults::Echo& /*fault*/) const {
    prepend(modbusFrame(request.address, request.function, request.data));
  }
  void operator()(const faults::Noise& fault) const { prepend(fault.bytes); }
  void operator()(const faults::LateReply& fault) const { answer.delay += fault.delay; }
  void operator()(const faults::NoReply& /*fault*/) const { answer.bytes.clear(); }

 private:
  void keep(std::size_t bytes) const { answer.bytes.resize(std::min(bytes, answer.bytes.size())); }
  void prepend(const Bytes& bytes) const {
    answer.bytes.insert(answer.bytes.begin(), bytes.begin(), bytes.end());
  }
};

void require(bool condition, const char* otherwise) {
  if (!condition) throw std::invalid_argument(otherwise);
}

/// Has an overload for each alternative that can be invalid, and one for all others.
struct Checker {
  void operator()(const faults::ExceptionReply& fault) const {
    require(fault.code != 0, "the exception code must not be 0");
  }
  void operator()(const faults::CutOff& fault) const {
    require(fault.bytes != 0, "a cut-off answer must keep at least 1 byte");
  }
  void operator()(const faults::Noise& fault) const {
    require(!fault.bytes.empty(), "noise must have at least 1 byte");
  }
  void operator()(const faults::At& trigger) const {
    require(trigger.request != 0, "requests are counted from 1");
  }
  void operator()(const faults::Every& trigger) const {
    require(trigger.requests != 0, "the step between two requests must be at least 1");
  }
  void operator()(const faults::ByChance& trigger) const {
    require(trigger.probability >= 0 && trigger.probability <= 1,
            "a probability must lie between 0 and 1");
  }
  template <typename Other>
  void operator()(const Other& /*harmless*/) const {}
};

/// Evenly distributed from 0 to below 1, the same on every system.
double fraction(std::mt19937_64& random) {
  constexpr double unit = 1.0 / 9007199254740992.0;  // 2 to the power of -53
  return static_cast<double>(random() >> 11) * unit;
}

std::mt19937_64 generatorOf(const FaultTrigger& trigger) {
  const auto* chance = std::get_if<faults::ByChance>(&trigger);
  return chance ? std::mt19937_64(chance->seed) : std::mt19937_64();
}

}  // namespace

void checkFault(const Fault& fault) {
  std::visit(Checker{}, fault.effect);
  checkTrigger(fault.trigger);
}

void checkTrigger(const FaultTrigger& trigger) {
  std::visit(Checker{}, trigger);
}

FaultClock::FaultClock(const FaultTrigger& trigger)
    : trigger_(trigger), random_(generatorOf(trigger)) {}

bool FaultClock::fallsOn(std::uint64_t request) {
  if (const auto* at = std::get_if<faults::At>(&trigger_)) return request == at->request;
  if (const auto* every = std::get_if<faults::Every>(&trigger_)) {
    return request % every->requests == 0;
  }
  return fraction(random_) < std::get<faults::ByChance>(trigger_).probability;
}

FaultPlan::FaultPlan(std::vector<Fault> faults) {
  std::ranges::for_each(faults, checkFault);
  std::ranges::stable_sort(faults, {}, [](const Fault& fault) { return fault.effect.index(); });
  ordered_.reserve(faults.size());
  for (Fault& fault : faults) {
    ordered_.push_back({std::move(fault.effect), FaultClock(fault.trigger)});
  }
}

SimulatedAnswer FaultPlan::spoil(const MasterRequest& request, Bytes answer) {
  ++requests_;
  SimulatedAnswer spoilt{std::move(answer)};
  for (Ordered& ordered : ordered_) {
    if (ordered.clock.fallsOn(requests_)) std::visit(Spoiler{request, spoilt}, ordered.effect);
  }
  return spoilt;
}

}  // namespace tessara
