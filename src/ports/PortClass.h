#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/FixedTable.h"

namespace tessara {

/// What a line of the port list says of the adapter behind it.
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

/// The kind of driver that a kernel device name tells of.
enum class PortDriver : std::uint8_t { Silabser, Viator, Usbser, Other };

/// Looks for the words of the known drivers anywhere in the name, letter case ignored, in the order
/// of the enumerators; slabser and silabser are one driver.
PortDriver portDriverOf(std::u16string_view deviceName);

/// The ports of the Viator modems, in entries 1 to `count`; entry 0 is not used.
struct ViatorList {
  FixedTable<std::u16string, 11> ports{"ViatorPorts"};
  std::int32_t count = 0;
};

/// A port of no known kind has a line only on request, and only if it is called COM.
bool listedAsPlain(std::u16string_view port, bool showAll);

/// The lines of a port behind usbser as far as the Viator modems decide them, one pass over all
/// modems from the last to the first: each pass that meets the port gives ViatorOverUsbser and
/// drops the highest entry from the passes of later ports; each other pass gives Plain where that
/// is listed. A port may so have several lines.
std::vector<PortClass> viatorPasses(ViatorList& viators, std::u16string_view port, bool showAll);

}  // namespace tessara
