#include "ports/PortClass.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/Text.h"

namespace tessara {
namespace {

struct DriverWord {
  std::u16string_view word;
  PortDriver driver;
};

constexpr std::array<DriverWord, 4> driverWords{{{u"slabser", PortDriver::Silabser},
                                                 {u"silabser", PortDriver::Silabser},
                                                 {u"viator", PortDriver::Viator},
                                                 {u"USBSER", PortDriver::Usbser}}};

/// In the order of PortClass.
constexpr std::array<std::u16string_view, 5> labelPrefixes{
    u"USB Adapter OKT (", u"USB Hart Adapter Viator (", u"TWN4 NFC-Adapter (",
    u"Bluetooth Adapter (", u"Serial Port ("};

}  // namespace

std::u16string portLabel(PortClass portClass, std::u16string_view port) {
  std::u16string label(labelPrefixes.at(static_cast<std::size_t>(portClass)));
  return label.append(port).append(u")");
}

PortDriver portDriverOf(std::u16string_view deviceName) {
  const auto* found = std::find_if(
      driverWords.begin(), driverWords.end(),
      [&](const DriverWord& row) { return containsIgnoringCase(deviceName, row.word); });
  return found == driverWords.end() ? PortDriver::Other : found->driver;
}

bool listedAsPlain(std::u16string_view port, bool showAll) {
  return showAll && containsIgnoringCase(port, u"COM");
}

std::vector<PortClass> viatorPasses(ViatorList& viators, std::u16string_view port, bool showAll) {
  std::vector<PortClass> classes;
  for (std::int32_t n = viators.count; n >= 1; --n) {
    if (viators.ports[n] == port) {
      classes.push_back(PortClass::ViatorOverUsbser);
      --viators.count;
    } else if (listedAsPlain(port, showAll)) {
      classes.push_back(PortClass::Plain);
    }
  }
  return classes;
}

}  // namespace tessara
