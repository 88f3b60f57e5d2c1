#include "PortList.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <ostream>

#include "base/Text.h"
#include "json/JsonText.h"
#include "ports/AdapterWords.h"

namespace tessara {
namespace {

/// A row of the table: port or label, state, device node, driver, USB device.
using PortRow = std::array<std::string, 5>;

constexpr const char* unlisted =
    "Not in the list of ports (the setting ShowAllComPorts lists ports with unrecognised adapters "
    "too):";

std::string hexText(std::uint16_t number) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "%04X", number);
  return text.data();
}

std::string usbText(const KnownPort& port) {
  if (!port.usb) {
    return "";
  }
  const std::string serial = port.usb->serial.empty() ? "" : ' ' + port.usb->serial;
  return hexText(port.usb->vendor) + ':' + hexText(port.usb->product) + serial;
}

PortRow rowOf(const PortLine& line) {
  PortRow row{line.label.empty() ? line.port : line.label, portStateText(line.state)};
  if (line.known) {
    row[2] = line.known->deviceNode;
    row[3] = line.known->driver;
    row[4] = usbText(*line.known);
  }
  return row;
}

/// The rows with each column as wide as its longest entry, and no blank at the end of a line.
void printRows(std::ostream& out, const std::vector<PortRow>& rows) {
  std::array<std::size_t, std::tuple_size_v<PortRow>> widths{};
  for (const PortRow& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths.at(i) = std::max(widths.at(i), row.at(i).size());
    }
  }
  for (const PortRow& row : rows) {
    std::string text;
    for (std::size_t i = 0; i < row.size(); ++i) {
      text += row.at(i) + std::string(widths.at(i) - row.at(i).size() + 2, ' ');
    }
    text.erase(text.find_last_not_of(' ') + 1);
    out << text << '\n';
  }
}

JsonText textOrNull(const std::string& text) {
  return text.empty() ? JsonText() : JsonText(text);
}

JsonText usbJson(const KnownPort& port) {
  if (!port.usb) {
    return {};
  }
  return JsonText::object({{"vendor", hexText(port.usb->vendor)},
                           {"product", hexText(port.usb->product)},
                           {"serial", textOrNull(port.usb->serial)},
                           {"interface", port.usb->interfaceNumber}});
}

JsonText lineJson(const PortLine& line) {
  const KnownPort known = line.known.value_or(KnownPort());
  return JsonText::object({{"label", textOrNull(line.label)},
                           {"port", line.port},
                           {"state", portStateText(line.state)},
                           {"deviceName", textOrNull(known.deviceName)},
                           {"device", textOrNull(known.deviceNode)},
                           {"driver", textOrNull(known.driver)},
                           {"usb", usbJson(known)}});
}

}  // namespace

std::vector<PortLine> portLines(
    const RegEnum& list, bool readerAnswers, const std::vector<KnownPort>& ports,
    const std::function<PortState(const std::string& deviceNode)>& stateOf) {
  std::vector<PortLine> lines;
  const auto lineFor = [&](const std::string& label, const KnownPort& port) {
    lines.push_back({label, "COM" + std::to_string(port.comPort), port, stateOf(port.deviceNode)});
  };
  std::vector<KnownPort> others = ports;
  for (std::int32_t i = 0; i < list.PortCount; ++i) {
    const std::int32_t number = list.PortNumbers[i];
    const std::string label = toUtf8(list.PortLabels[i]);
    const auto isIt = [&](const KnownPort& port) { return port.comPort == number; };
    const auto port = std::find_if(ports.begin(), ports.end(), isIt);
    if (port != ports.end()) {
      lineFor(label, *port);
      std::erase_if(others, isIt);
    } else {
      lines.push_back({label, "COM" + std::to_string(number), std::nullopt, PortState::Absent});
    }
  }
  if (readerAnswers) {
    lines.push_back({toUtf8(usbReaderLine), "NFC"});
  }
  for (const KnownPort& port : others) {
    lineFor("", port);
  }
  return lines;
}

void printPortTable(std::ostream& out, const std::vector<PortLine>& lines,
                    const std::vector<std::string>& problems) {
  std::vector<PortRow> listed;
  std::vector<PortRow> others;
  for (const PortLine& line : lines) {
    (line.label.empty() ? others : listed).push_back(rowOf(line));
  }
  if (listed.empty()) {
    out << "There is no port on which a module could be.\n";
  }
  printRows(out, listed);
  if (!others.empty()) {
    out << '\n' << unlisted << '\n';
    printRows(out, others);
  }
  if (!problems.empty()) {
    out << "\nProblems:\n";
    for (const std::string& problem : problems) {
      out << problem << '\n';
    }
  }
}

void printPortJson(std::ostream& out, const std::vector<PortLine>& lines,
                   const std::vector<std::string>& problems) {
  std::vector<JsonText> ports;
  for (const PortLine& line : lines) {
    ports.push_back(lineJson(line));
  }
  const std::vector<JsonText> texts(problems.begin(), problems.end());
  out << JsonText::object({{"ports", JsonText::list(ports)}, {"problems", JsonText::list(texts)}})
             .indented()
      << '\n';
}

}  // namespace tessara
