#include "drivers/hart/HartExchange.h"

#include "drivers/hart/HartStatus.h"

namespace tessara {

namespace {

bool isToThisMaster(const HartFrame& frame, const HartFrame& request) {
  return frame.kind == HartFrameKind::Answer &&
         frame.address.isOfPrimaryMaster() == request.address.isOfPrimaryMaster();
}

bool isSameCommand(const HartFrame& frame, const HartFrame& request) {
  if (frame.command != request.command) return false;
  return frame.commandNumber() == request.commandNumber() ||
         HartStatus({frame.data[0], frame.data[1]}).outcome() == HartOutcome::CommunicationError;
}

}  // namespace

bool isHartAnswer(const HartFrame& frame, const HartFrame& request) {
  return isToThisMaster(frame, request) && frame.address.isSameAddress(request.address) &&
         isSameCommand(frame, request);
}

std::optional<std::string> hartMismatch(const HartFrame& frame, const HartFrame& request) {
  if (!isToThisMaster(frame, request)) return std::nullopt;
  if (!frame.address.isSameAddress(request.address)) {
    return "no answer, only one from " + hartAddressText(frame.address);
  }
  return "no answer, only one to command " + std::to_string(frame.commandNumber());
}

std::chrono::milliseconds hartPauseAfter(const HartReception& reception, bool isBursting,
                                         const HartTimings& timings) {
  if (reception.damage != HartDamage::None) return timings.linkQuiet;
  const bool isToPrimary = reception.frame.address.isOfPrimaryMaster();
  switch (reception.frame.kind) {
    case HartFrameKind::Answer:
      if (!isToPrimary) return std::chrono::milliseconds(0);
      return isBursting ? timings.linkQuiet : timings.linkGrant;
    case HartFrameKind::Burst:
      return isToPrimary ? timings.linkQuiet : std::chrono::milliseconds(0);
    case HartFrameKind::Request:
      break;
  }
  return timings.linkQuiet;
}

}  // namespace tessara
