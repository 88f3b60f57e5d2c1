#pragma once

#include <cstdint>
#include <string>

#include "base/FixedTable.h"
#include "platform/RegistryApi.h"
#include "platform/RegistryHelper.h"

namespace tessara {

/// The serial ports that may lead to a module, as the last enumeration found them; one set per
/// thread. Line i of the port list is entry i of PortLabels and PortNumbers. Entries from PortCount
/// on are left over from earlier enumerations.
struct RegEnum {
  static constexpr std::size_t maxPorts = 51;

  /// The number of lines.
  std::int32_t PortCount = 0;
  /// The text of each line: "USB Adapter OKT (COM3)". Its wording selects the path to the module.
  FixedTable<std::u16string, maxPorts> PortLabels{"PortLabels"};
  /// The number of the port behind each line, 3 for COM3.
  FixedTable<std::int32_t, maxPorts> PortNumbers{"PortNumbers"};
  /// The kernel device names in the order in which the system lists them. Not parallel to the
  /// lines, since ports that are not listed have a name too.
  FixedTable<std::u16string, maxPorts> PortDeviceNames{"PortDeviceNames"};
  /// The setting of that name; only 1 also lists ports of unknown type.
  std::int16_t ShowAllComPorts = 0;
};

/// Rebuilds the port list. A system without serial ports gives an empty list.
///
/// An error passes to the caller and keeps the lines added before it: 5 for a port whose value
/// cannot be queried or is shorter than "COM", 9 when a table is full (51 ports, 11 TWN4 readers,
/// 10 Viator modems), 13 for a port without a number after "COM".
void EnumerateComPorts(RegEnum& regEnum, RegistryHelper& registry, RegistryApi& api);

/// The name of the port behind a kernel device name ("COM3"), or the decimal text of a value that
/// is a number; empty for a value of any other type. A value that cannot be queried is an invalid
/// call (error 5).
std::u16string GetSerialCommValue(RegistryApi& api, const std::u16string& valueName);

/// The last line whose text contains COM and the number; 0, the first line, if there is none.
/// A number that begins a longer one (3 and COM31) matches that line too.
std::int16_t FindPortIndex(const RegEnum& regEnum, std::int16_t comPort);

}  // namespace tessara
