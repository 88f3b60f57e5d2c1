#pragma once

namespace tessara::bench {

/// One walk over the system's serial ports by libudev alone, which asks each for its name, its
/// device node, its driver, and for the vendor, product, serial number, interface, place and port
/// of the USB device behind it, or the type of the UART. Consoles are passed over by their paths.
/// Gives the number of ports.
int enumerateBarely();

}  // namespace tessara::bench
