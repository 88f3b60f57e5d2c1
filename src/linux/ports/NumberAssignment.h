#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include "linux/ports/PortNumbers.h"
#include "linux/ports/SerialDevice.h"

namespace tessara {

/// Gives each of the devices its COM number, in their order; 0 to one for which none is left.
///
/// A device gets the number that it had the last time: by serial number wherever it is plugged in,
/// else by the place. Of several with the same serial number each is known by its place first. A
/// new device gets the lowest number that no device ever had, from 1 on for a UART of the machine
/// and from 3 on for an adapter, and that is remembered.
///
/// The numbers in `claimed` belong to ports from elsewhere. A device whose number is claimed shows
/// under another one for as long as that lasts; its own stays remembered.
std::vector<std::int16_t> assignNumbers(const std::vector<SerialDevice>& devices,
                                        const std::set<std::int16_t>& claimed, PortNumbers& memory);

}  // namespace tessara
