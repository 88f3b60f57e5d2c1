#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include "linux/ports/PortNumbers.h"
#include "linux/ports/SerialDevice.h"

namespace tessara {

/// Returns the COM number of each device, in their order; 0 for one for which no number is left.
///
/// A device gets the number that it had before. It is recognised by its serial number wherever it
/// is plugged in, else by its place; of several with the same serial number, each is recognised by
/// its place first. A new device gets the lowest number that no device has had, from 1 for a UART
/// of the machine and from 3 for an adapter, and that number is stored.
///
/// The numbers in `claimed` belong to ports from other sources. A device whose number is claimed
/// has another one while that lasts; its own stays stored.
std::vector<std::int16_t> assignNumbers(const std::vector<SerialDevice>& devices,
                                        const std::set<std::int16_t>& claimed, PortNumbers& memory);

}  // namespace tessara
