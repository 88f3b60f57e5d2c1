#pragma once

#include <cstdint>

namespace tessara {

/// The rate in bit/s that the terminal behind the descriptor is set to, including rates that the
/// terminal interface has no constant for. Either end of a pseudo-terminal gives the same. 0 if
/// there is none.
std::uint32_t terminalRate(int descriptor);

/// Sets an open terminal to `rate` bit/s in both directions, which may be a rate that the terminal
/// interface has no constant for, such as 14400. False if the terminal refuses.
bool setTerminalRate(int descriptor, std::uint32_t rate);

}  // namespace tessara
