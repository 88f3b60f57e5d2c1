#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/FixedTable.h"

namespace tessara {

/// The adapter type that a line of the port list names.
enum class PortClass : std::uint8_t {
  ProgrammingAdapter,  ///< "USB Adapter OKT ("
  ViatorModem,         ///< "USB Hart Adapter Viator ("
  Twn4Reader,          ///< "TWN4 NFC-Adapter ("
  ViatorOverUsbser,    ///< "Bluetooth Adapter ("
  Plain,               ///< "Serial Port ("
};

/// The line for a port: "USB Adapter OKT (COM3)". The words Hart and TWN4 NFC-Adapter in it select
/// the path to the module.
std::u16string portLabel(PortClass portClass, std::u16string_view port);

/// The type of driver that a kernel device name identifies.
enum class PortDriver : std::uint8_t { Silabser, Viator, Usbser, Other };

/// Looks for the words of the known drivers anywhere in the name, letter case ignored, in the order
/// of the enumerators; slabser and silabser are one driver.
PortDriver portDriverOf(std::u16string_view deviceName);

/// The ports of the Viator modems, in entries 1 to `count`; entry 0 is not used.
struct ViatorList {
  FixedTable<std::u16string, 11> ports{"ViatorPorts"};
  std::int32_t count = 0;
};

/// A port of an unknown type is listed only on request, and only if its name contains COM.
bool listedAsPlain(std::u16string_view port, bool showAll);

/// The lines of a port behind usbser as far as the Viator modems determine them. There is one pass
/// for each modem, from the last to the first: a pass whose modem has this port gives
/// ViatorOverUsbser and drops the highest entry from the passes of later ports; any other pass
/// gives Plain if such ports are listed. A port may thus have several lines.
std::vector<PortClass> viatorPasses(ViatorList& viators, std::u16string_view port, bool showAll);

}  // namespace tessara
