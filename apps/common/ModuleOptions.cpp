#include "common/ModuleOptions.h"

#include <optional>
#include <string>

#include "base/Text.h"
#include "linux/SettingsPorts.h"
#include "ports/AdapterWords.h"

namespace tessara {

namespace {

/// "COM3" or "NFC", in upper or lower case.
std::optional<std::int16_t> portNumber(const std::string& text) {
  const std::string name = upperCase(text);
  return name == "NFC" ? std::optional(usbReaderPort) : comPortNumber(name);
}

}  // namespace

void addModuleOptions(CLI::App& app, const std::shared_ptr<ReadRequest>& request, bool isNeeded) {
  const auto takePort = [request](const std::string& text) {
    const auto number = portNumber(text);
    if (!number) throw CLI::ValidationError("--port", text + " is neither COM<n> nor NFC");
    request->comPort = *number;
  };
  CLI::Option_group* source = app.add_option_group("Module", "Where the module is");
  source->add_option_function<std::string>("--port", takePort,
                                           "The port: COM3, or NFC for the USB NFC reader");
  source->add_option("--simulate", request->moduleFile, "Simulate the module of this file instead")
      ->check(CLI::ExistingFile);
  source->require_option(isNeeded ? 1 : 0, 1);
  app.add_option("--baudrate", request->baudrate, "Bit/s")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  app.add_option("--address", request->address, "Station address; 192 without this option")
      ->check(CLI::Range(0, 255));
  app.add_option("--language", request->language,
                 "Language number, 1 German to 11 Japanese, 0 that of the system")
      ->check(CLI::Range(0, 11));
}

}  // namespace tessara
