#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "linux/PortSource.h"
#include "linux/ports/PortState.h"
#include "ports/RegEnum.h"

namespace tessara {

/// A port in a list for people and scripts. Texts are UTF-8.
struct PortLine {
  /// The line of the control's port list; empty for a port that it does not list.
  std::string label;
  /// "COM3"; "NFC" for the USB reader, which has no port.
  std::string port;
  /// The device of the port; nothing if it is no longer known, and for the USB reader.
  std::optional<KnownPort> known{};
  PortState state = PortState::Free;

  bool operator==(const PortLine&) const = default;
};

/// Every line of the control's port list, in its order and with its repetitions, then a line for
/// the USB reader if it answers, then the other known ports. `stateOf` is called for the device
/// node of each line.
std::vector<PortLine> portLines(
    const RegEnum& list, bool readerAnswers, const std::vector<KnownPort>& ports,
    const std::function<PortState(const std::string& deviceNode)>& stateOf = portState);

/// The lines as an aligned table, those that the control does not list under a heading of their
/// own; below it what is wrong with ports that were left out.
void printPortTable(std::ostream& out, const std::vector<PortLine>& lines,
                    const std::vector<std::string>& problems);

/// The lines as one JSON object: "ports", an array of objects with the keys "label", "port",
/// "state", "deviceName", "device", "driver" and "usb", which holds "vendor", "product", "serial"
/// and "interface", null where unknown; and "problems", an array of texts.
void printPortJson(std::ostream& out, const std::vector<PortLine>& lines,
                   const std::vector<std::string>& problems);

}  // namespace tessara
