#pragma once

#include <cstdint>
#include <span>

#include "drivers/hart/HartFrame.h"

namespace tessara {

/// What a module reports about itself in answer to command 0, as far as a master needs it.
struct HartIdentity {
  std::uint8_t manufacturer = 0;       ///< byte 1; from revision 7 on the device type's high byte
  std::uint8_t deviceType = 0;         ///< byte 2
  std::uint8_t preambles = 0;          ///< byte 3: those that the module needs in requests
  std::uint8_t universalRevision = 0;  ///< byte 4: 5, 6, 7
  std::uint8_t deviceRevision = 0;     ///< byte 5
  HartAddress address{};               ///< the module's unique one, as the primary master uses it
};

/// The identity in the data of an answer to command 0, without the status. The data may be longer
/// than in any revision. Throws HartFault if they are too short or do not begin with 254.
HartIdentity hartIdentityOf(std::span<const std::uint8_t> data);

}  // namespace tessara
