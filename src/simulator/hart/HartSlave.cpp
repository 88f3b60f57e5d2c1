#include "simulator/hart/HartSlave.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "drivers/hart/HartIdentity.h"
#include "drivers/hart/HartStatus.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

namespace {

constexpr std::size_t numberLength = 2;   // of an extended command
constexpr std::size_t minStatusEcho = 9;  // in a request that clears "more status available"

bool begins(std::span<const std::uint8_t> bytes, std::span<const std::uint8_t> with) {
  return bytes.size() >= with.size() && std::equal(with.begin(), with.end(), bytes.begin());
}

HartAddress addressIn(const Bytes& identity) {
  try {
    return hartIdentityOf(identity).address;
  } catch (const std::exception& error) {
    throw std::invalid_argument(std::string("not the identity of a module: ") + error.what());
  }
}

}  // namespace

HartSlave::HartSlave(SimulatedHartModule module)
    : module_(std::move(module)), address_(addressIn(module_.identity)) {
  if (module_.pollingAddress > HartAddress::maxPollingAddress) {
    throw std::invalid_argument("a polling address is from 0 to 63");
  }
  for (HartMisbehaviour& fault : std::exchange(module_.faults, {})) {
    checkTrigger(fault.trigger);
    faults_.push_back({std::move(fault.effect), FaultClock(fault.trigger)});
  }
}

std::optional<SimulatedAnswer> HartSlave::answer(const HartReception& reception) {
  const HartFrame& request = reception.frame;
  if (reception.damage == HartDamage::BrokenOff || !isAddressedBy(request)) return std::nullopt;
  HartDraft draft(request, soundAnswer(reception), module_.preambles);
  if (isStillDelayed(request)) draft.apply(faults::ResponseCode{hart::delayRunning});
  ++requests_;
  for (Ordered& fault : faults_) {
    if (!fault.clock.fallsOn(requests_)) continue;
    draft.apply(fault.effect);
    if (const auto* delayed = std::get_if<faults::DelayedAnswer>(&fault.effect)) {
      delayed_ = {request, delayed->requests};
    }
  }
  return draft.finished();
}

bool HartSlave::isAddressedBy(const HartFrame& request) const {
  if (request.kind != HartFrameKind::Request) return false;
  if (!request.address.isLong()) {
    return request.address.pollingAddress() == module_.pollingAddress &&
           request.command == hart::readIdentity;
  }
  const bool isCall =
      request.command == hart::readIdentityByTag || request.command == hart::readIdentityByName;
  if (!isCall) return request.address.isSameAddress(address_);
  return (request.address.isBroadcast() || request.address.isSameAddress(address_)) &&
         isCalledBy(request);
}

bool HartSlave::isCalledBy(const HartFrame& request) const {
  if (request.command == hart::readIdentityByTag) return begins(request.data, module_.tag);
  const auto name = module_.answers.find(hart::readName);
  return name != module_.answers.end() && begins(request.data, name->second);
}

HartFrame HartSlave::soundAnswer(const HartReception& reception) {
  const HartFrame& request = reception.frame;
  if (reception.damage != HartDamage::None) {
    HartFrame answer = refusal(request, 0);
    answer.data = {hart::communicationError | hart::checkByteError, 0};
    return answer;
  }
  if (request.command == extendedHartCommand && request.data.size() < numberLength) {
    return refusal(request, hart::tooFewData);
  }
  switch (request.commandNumber()) {
    case hart::readIdentity:
    case hart::readIdentityByTag:
    case hart::readIdentityByName:
      return dataAnswer(request, module_.identity);
    case hart::readStatus:
      return statusAnswer(request);
    default:
      break;
  }
  const auto known = module_.answers.find(request.commandNumber());
  return known == module_.answers.end() ? refusal(request, hart::notImplemented)
                                        : dataAnswer(request, known->second);
}

HartFrame HartSlave::statusAnswer(const HartFrame& request) {
  const auto known = module_.answers.find(hart::readStatus);
  if (known == module_.answers.end()) return refusal(request, hart::notImplemented);
  const auto echo = request.payload();
  if (!echo.empty() && echo.size() < minStatusEcho) {
    return refusal(request, hart::tooFewData);
  }
  const Bytes& status = known->second;
  if (!echo.empty() && begins(status, echo.first(std::min(echo.size(), status.size())))) {
    hasSeenStatus_.at(request.address.isOfPrimaryMaster() ? 1 : 0) = true;
  }
  return dataAnswer(request, status);
}

HartFrame HartSlave::refusal(const HartFrame& request, std::uint8_t code) const {
  return hartAnswer(request, {code, deviceStatusFor(request)});
}

HartFrame HartSlave::dataAnswer(const HartFrame& request, const Bytes& data) const {
  return hartAnswer(request, {hart::success, deviceStatusFor(request)}, data);
}

std::uint8_t HartSlave::deviceStatusFor(const HartFrame& request) const {
  const bool isOld = hasSeenStatus_.at(request.address.isOfPrimaryMaster() ? 1 : 0);
  const unsigned int cleared = isOld ? hart::moreStatus : 0U;
  return static_cast<std::uint8_t>(module_.deviceStatus & ~cleared);
}

/// Counts down the identical requests after one whose answer was delayed.
bool HartSlave::isStillDelayed(const HartFrame& request) {
  if (!delayed_ || !(delayed_->request == request)) return false;
  if (delayed_->requests == 0) {
    delayed_.reset();
    return false;
  }
  --delayed_->requests;
  return true;
}

}  // namespace tessara
