#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "drivers/hart/HartParser.h"
#include "simulator/hart/HartDraft.h"
#include "simulator/hart/SimulatedHartModule.h"

namespace tessara {

/// One module on a HART line: the answers that follow from its data and its faults.
class HartSlave {
 public:
  /// Throws std::invalid_argument if the polling address is above 63, the identity too short, or a
  /// fault's trigger invalid.
  explicit HartSlave(SimulatedHartModule module);

  /// The answer to what has come from the line; nothing if this module does not answer it: not a
  /// request, another address, a polling address with a command other than 0, a call by another
  /// tag. Each answered request counts for the faults.
  std::optional<SimulatedAnswer> answer(const HartReception& reception);

 private:
  struct Ordered {
    HartEffect effect;
    FaultClock clock;
  };

  /// A delayed answer to a request.
  struct Delayed {
    HartFrame request;
    std::uint64_t requests;  ///< identical ones that are still put off
  };

  [[nodiscard]] bool isAddressedBy(const HartFrame& request) const;
  [[nodiscard]] bool isCalledBy(const HartFrame& request) const;
  [[nodiscard]] HartFrame soundAnswer(const HartReception& reception);
  [[nodiscard]] HartFrame statusAnswer(const HartFrame& request);
  [[nodiscard]] HartFrame refusal(const HartFrame& request, std::uint8_t code) const;
  [[nodiscard]] HartFrame dataAnswer(const HartFrame& request, const Bytes& data) const;
  [[nodiscard]] std::uint8_t deviceStatusFor(const HartFrame& request) const;
  [[nodiscard]] bool isStillDelayed(const HartFrame& request);

  SimulatedHartModule module_;  // its list of faults has moved to faults_
  HartAddress address_;
  std::vector<Ordered> faults_;
  std::uint64_t requests_ = 0;
  std::optional<Delayed> delayed_;
  std::array<bool, 2> hasSeenStatus_{};  // the secondary and the primary master
};

}  // namespace tessara
