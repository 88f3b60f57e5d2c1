#include "linux/SettingsPorts.h"

#include <charconv>
#include <map>
#include <string>
#include <utility>

#include "ports/AdapterWords.h"

namespace tessara {

namespace {

constexpr std::string_view portPrefix = "COM";
/// The walk over the ports offers 256 bytes for a name and ends at one that has no room in them,
/// with all ports behind it lost; some bytes are left for a number that may have to be added.
constexpr std::size_t maxNameLength = 240;

/// A port as far as it has been entered.
struct EnteredPort {
  std::string device;
  std::string name;
  bool hasDevice = false;
  bool isUsable = true;
};

/// Puts the settings of the group together to ports.
class EnteredPorts {
 public:
  explicit EnteredPorts(const PortProblemSink& report) : report_(report) {}

  /// `problem` says what is wrong with the value; empty if it is usable.
  void enter(const std::string& setting, const std::string& text, const std::string& problem) {
    const auto slash = setting.find('/');
    const auto number = comPortNumber(std::string_view(setting).substr(0, slash));
    const std::string entry = slash == std::string::npos ? "" : setting.substr(slash + 1);
    if (!number || (entry != "Device" && entry != "Name")) {
      report(setting,
             "is not part of a port: it must be COM<n>/Device or COM<n>/Name, with <n> from 1 to "
             "32767 and not 999");
      return;
    }
    EnteredPort& port = ports_[*number];
    (entry == "Device" ? port.device : port.name) = text;
    port.hasDevice = port.hasDevice || entry == "Device";
    if (!problem.empty()) {
      report(problem);
      port.isUsable = false;
    } else if (port.name.size() > maxNameLength) {
      report(setting, "is longer than " + std::to_string(maxNameLength) + " bytes");
      port.isUsable = false;
    }
  }

  void report(const std::string& problem) const {
    if (report_) report_(problem + "; ignored");
  }

  std::vector<KnownPort> finished() {
    std::vector<KnownPort> ports;
    for (auto& [number, port] : ports_) {
      const std::string ownName = std::to_string(number);
      if (!port.hasDevice && port.isUsable) {
        report("COM" + ownName + "/Name",
               "belongs to a port without a device: COM" + ownName + "/Device is missing");
      }
      if (!port.isUsable || port.device.empty()) continue;
      if (port.name.empty()) port.name = "\\Device\\Silabser" + ownName;
      ports.push_back({number, std::move(port.name), std::move(port.device)});
    }
    return ports;
  }

 private:
  void report(const std::string& setting, const std::string& what) const {
    report("The setting " + std::string(SettingsPorts::group) + '/' + setting + ' ' + what);
  }

  const PortProblemSink& report_;
  std::map<std::int16_t, EnteredPort> ports_;
};

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
  const SettingsGroup settings = store_.group(group);
  EnteredPorts entered(report_);
  for (const std::string& line : settings.skippedLines) entered.report(line);
  for (const auto& [name, text] : settings.values) entered.enter(name, text, "");
  for (const auto& [name, problem] : settings.unusable) entered.enter(name, "", problem);
  return entered.finished();
}

}  // namespace tessara
