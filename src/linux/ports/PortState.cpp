#include "linux/ports/PortState.h"

#include <array>
#include <cstddef>

#include "serial/PortError.h"
#include "serial/SerialLine.h"

namespace tessara {
namespace {

/// In the order of PortState.
constexpr std::array<const char*, 5> stateTexts{"free", "in use", "denied", "absent",
                                                "no serial port"};

}  // namespace

PortState portState(const std::string& deviceNode) {
  try {
    const SerialLine line(deviceNode);
    return PortState::Free;
  } catch (const PortError& error) {
    switch (error.problem()) {
      case PortProblem::NotThere:
        return PortState::Absent;
      case PortProblem::InUse:
        return PortState::InUse;
      case PortProblem::NoPermission:
        return PortState::Denied;
      case PortProblem::Refused:
        return PortState::NoPort;
    }
    return PortState::NoPort;
  }
}

std::string portStateText(PortState state) {
  return stateTexts.at(static_cast<std::size_t>(state));
}

}  // namespace tessara
