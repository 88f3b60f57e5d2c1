#pragma once

namespace tessara::bench {

/// One enumeration of the system's serial ports by libudev alone, which reads of each the name,
/// device node and driver, and the vendor, product, serial number, interface, location and port of
/// the USB device behind it, or the type of the UART. Consoles are skipped by their paths. Returns
/// the number of ports.
int enumerateBarely();

}  // namespace tessara::bench
