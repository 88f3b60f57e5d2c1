#include "linux/SettingsPorts.h"

#include <charconv>
#include <map>

#include "base/RunTimeError.h"
#include "ports/AdapterWords.h"

namespace tessara {

namespace {

constexpr std::string_view portPrefix = "COM";
/// The walk over the ports offers 256 bytes for a name and ends at one that has no room in them,
/// with all ports behind it lost; some bytes are left for a number that may have to be added.
constexpr std::size_t longestName = 240;

/// The port whose entry `name` is, with the place in it that the entry fills.
std::pair<std::int16_t, std::string KnownPort::*> placeOf(const std::string& name) {
  const auto slash = name.find('/');
  const auto number = comPortNumber(std::string_view(name).substr(0, slash));
  const std::string entry = slash == std::string::npos ? "" : name.substr(slash + 1);
  if (number && entry == "Device") return {*number, &KnownPort::deviceNode};
  if (number && entry == "Name") return {*number, &KnownPort::deviceName};
  throw RunTimeError(ErrorNumber::InvalidCall,
                     "The setting " + std::string(SettingsPorts::group) + '/' + name +
                         " names no port: it has to be COM<n>/Device or COM<n>/Name, <n> from 1 to "
                         "32767 and not 999");
}

}  // namespace

std::optional<std::int16_t> comPortNumber(std::string_view text) {
  if (text.substr(0, portPrefix.size()) != portPrefix) return std::nullopt;
  std::int16_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data() + portPrefix.size(), end, number);
  const bool isPort = error == std::errc() && stop == end && number > 0 && number != usbReaderPort;
  return isPort ? std::optional(number) : std::nullopt;
}

std::vector<KnownPort> SettingsPorts::ports() const {
  std::map<std::int16_t, KnownPort> entered;
  for (const auto& [name, text] : store_.values(group)) {
    const auto [number, place] = placeOf(name);
    KnownPort& port = entered[number];
    port.comPort = number;
    port.*place = text;
    if (port.deviceName.size() > longestName) {
      throw RunTimeError(ErrorNumber::InvalidCall, "The setting " + std::string(group) + '/' +
                                                       name + " is longer than " +
                                                       std::to_string(longestName) + " bytes");
    }
  }
  std::vector<KnownPort> ports;
  for (auto& [number, port] : entered) {
    if (port.deviceNode.empty()) continue;
    if (port.deviceName.empty()) port.deviceName = "\\Device\\Silabser" + std::to_string(number);
    ports.push_back(std::move(port));
  }
  return ports;
}

}  // namespace tessara
