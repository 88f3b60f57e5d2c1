#include "commandline/CommandLine.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <limits>
#include <optional>

#include <CLI/CLI.hpp>

#include "linux/SettingsPorts.h"
#include "ports/AdapterWords.h"

namespace tessara {

namespace {

constexpr const char* exitCodes =
    "Exit codes: 0 done, 1 failed, 2 wrong usage, 3 no connection to a module, 4 the module could "
    "not be read.";

constexpr const char* programRate = "Bit/s, 300 or more; 19200 without this option";
constexpr const char* lastRate =
    "Bit/s, 300 or more; the rate that was used last without this option";

/// "COM3" or "NFC", in capitals or not.
std::optional<std::int16_t> portNumber(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char sign) { return static_cast<char>(std::toupper(sign)); });
  return name == "NFC" ? std::optional(usbReaderPort) : comPortNumber(name);
}

/// The number that the text gives whole; nothing if it gives none of 32 bits.
std::optional<std::int32_t> wholeNumber(const std::string& text) {
  std::int32_t number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

/// Refuses a file that does not exist, without a word of its own in the help.
CLI::Validator existingFile() {
  return CLI::Validator(CLI::ExistingFile).description("");
}

/// Adds an option of a whole number within the range; `problem` follows a number outside of it.
void addNumber(CLI::App& app, const std::string& name, std::optional<std::int32_t>& number,
               std::int32_t min, std::int32_t max, const std::string& problem,
               const std::string& help) {
  const auto take = [&number, name, min, max, problem](const std::string& text) {
    number = wholeNumber(text);
    if (!number) throw CLI::ValidationError(name, text + " is not a whole number");
    if (*number < min || *number > max) throw CLI::ValidationError(name, text + problem);
  };
  app.add_option_function<std::string>(name, take, help)->type_name("N");
}

/// The options that say which module is meant and how it is read.
void addModuleOptions(CLI::App& app, ModuleRequest& request, bool needsModule, const char* rate) {
  constexpr std::int32_t maxLanguage = 11;
  const auto takePort = [&request](const std::string& text) {
    const auto number = portNumber(text);
    if (!number) throw CLI::ValidationError("--port", text + " is neither COM<n> nor NFC");
    request.comPort = *number;
  };
  CLI::Option_group* source = app.add_option_group("Module", "Where the module is");
  source
      ->add_option_function<std::string>("--port", takePort,
                                         "The port: COM3, or NFC for the USB NFC reader")
      ->type_name("PORT");
  source->add_option("--simulate", request.moduleFile, "Simulate the module of this file instead")
      ->type_name("FILE")
      ->check(existingFile());
  source->require_option(needsModule ? 1 : 0, 1);
  addNumber(app, "--baudrate", request.baudrate, minBaudrate,
            std::numeric_limits<std::int32_t>::max(),
            " bit/s is too low: below 300 bit/s a read would take minutes", rate);
  addNumber(app, "--address", request.address, minRequestAddress, maxRequestAddress,
            " is not an address: Modbus and NFC take 1 to 247, HART takes 0 to 63",
            "Address of the module: 1 to 247 for Modbus and NFC (192 without this option), 0 to 63 "
            "for HART (0 without this option)");
  addNumber(app, "--language", request.language, 0, maxLanguage, " is not within 0 to 11",
            "Language number, 1 German to 11 Japanese, 0 that of the system");
}

/// The requests that options are written into, and the one that was chosen.
struct Requests {
  CatalogueCheckRequest catalogueCheck;
  LanguageCheckRequest languageCheck;
  LanguageBuildRequest languageBuild;
  PortsRequest ports;
  ReadRequest read;
  ServeRequest serve;
  SettingsGetRequest settingsGet;
  SettingsSetRequest settingsSet;
  SimulateRequest simulate;
  std::optional<CommandRequest> chosen{};
};

/// Adds a command that chooses `request`.
template <class Command>
CLI::App& addCommand(CLI::App& app, Requests& requests, const Command& request,
                     const std::string& name, const std::string& help) {
  CLI::App* command = app.add_subcommand(name, help);
  command->callback([&requests, &request] { requests.chosen = request; });
  return *command;
}

CLI::App& addGroup(CLI::App& app, const std::string& name, const std::string& help) {
  CLI::App* group = app.add_subcommand(name, help);
  group->require_subcommand(1);
  return *group;
}

void addFiles(CLI::App& command, std::vector<std::filesystem::path>& files, const char* example) {
  command
      .add_option_function<std::vector<std::string>>(
          "FILE",
          [&files](const std::vector<std::string>& names) {
            files.assign(names.begin(), names.end());
          },
          example)
      ->type_name("")
      ->required();
}

void addPath(CLI::App& command, const std::string& name, std::filesystem::path& path,
             const char* help) {
  command
      .add_option_function<std::string>(
          name, [&path](const std::string& text) { path = text; }, help)
      ->type_name("")
      ->required();
}

void addText(CLI::App& command, const std::string& name, std::string& text, const char* help) {
  command.add_option(name, text, help)->type_name("")->required();
}

void addDataCommands(CLI::App& app, Requests& requests) {
  CLI::App& catalogue = addGroup(app, "catalogue", "Check catalogues of modules");
  addFiles(addCommand(catalogue, requests, requests.catalogueCheck, "check",
                      "Print what catalogues list, and what is wrong in which line"),
           requests.catalogueCheck.files, "TessaraDevices.xml, ...");

  CLI::App& language = addGroup(app, "language", "Check and make language files");
  addFiles(addCommand(language, requests, requests.languageCheck, "check",
                      "Print what language files load as, and what is wrong in which line"),
           requests.languageCheck.files, "MERIDEX_CONF.elg, ...");
  CLI::App& build = addCommand(language, requests, requests.languageBuild, "build",
                               "Make a language file from its source");
  addPath(build, "SOURCE", requests.languageBuild.source, "UTF-8 text with numbered entries");
  addPath(build, "OUT", requests.languageBuild.result, "The language file to write");
}

void addModuleCommands(CLI::App& app, Requests& requests) {
  addCommand(app, requests, requests.ports, "ports", "List the ports on which a module could be")
      .add_flag("--json", requests.ports.json, "Print one JSON object");

  CLI::App& read =
      addCommand(app, requests, requests.read, "read", "Read a module once and print what it is");
  addModuleOptions(read, requests.read.module, true, programRate);
  read.add_flag("--json", requests.read.json, "Print one JSON object");
  read.add_flag("--trace", requests.read.trace, "Print each call to the module on standard error");

  CLI::App& serve = addCommand(
      app, requests, requests.serve, "serve",
      "Let another program drive a control by JSON-RPC requests on standard input, one a line");
  serve.add_flag("--trace", requests.serve.trace, "Report each call to the module");
  serve
      .add_option("--simulate", requests.serve.moduleFile,
                  "Simulate the module of this file and offer its port")
      ->type_name("FILE")
      ->check(existingFile());
  serve.add_flag("--reentrant", requests.serve.reentrant,
                 "Handle a request as soon as it arrives, also in the middle of another");
}

void addSettingsCommands(CLI::App& app, Requests& requests) {
  constexpr const char* names = "Language, Ports/COM9/Device, ...";
  static constexpr SettingsListRequest all;
  CLI::App& settings = addGroup(app, "settings", "List, read and write the settings");
  addCommand(settings, requests, all, "list", "Print all settings as NAME=VALUE lines");
  addText(
      addCommand(settings, requests, requests.settingsGet, "get", "Print the value of one setting"),
      "NAME", requests.settingsGet.name, names);
  CLI::App& set = addCommand(settings, requests, requests.settingsSet, "set", "Write one setting");
  addText(set, "NAME", requests.settingsSet.name, names);
  addText(set, "VALUE", requests.settingsSet.text,
          "The new value; an empty one removes the setting");
}

void addSimulateCommand(CLI::App& app, Requests& requests) {
  CLI::App& simulate = addCommand(app, requests, requests.simulate, "simulate",
                                  "Serve modules on virtual ports until the program is ended");
  simulate.add_option("MODULE", requests.simulate.moduleFiles, "Module files, one port each")
      ->type_name("")
      ->required()
      ->check(existingFile());
  simulate.add_flag("--paced", requests.simulate.isPaced, "Send bytes at the rate of the line");
}

void describe(CLI::App& app) {
  app.set_version_flag("--version", app.get_name() + " " + TESSARA_VERSION,
                       "Print the version and exit");
  app.footer(exitCodes);
}

/// Prints what the parser has to say.
ExitCode printed(const CLI::App& app, const CLI::ParseError& error) {
  return app.exit(error) == 0 ? ExitCode::Done : ExitCode::WrongUsage;
}

}  // namespace

CommandRequest parseCommandLine(int count, const char* const* arguments) {
  CLI::App app("Reads analog interface modules.", "modulinfo");
  describe(app);
  app.require_subcommand(0, 1);
  Requests requests;
  addDataCommands(app, requests);
  addModuleCommands(app, requests);
  addSettingsCommands(app, requests);
  addSimulateCommand(app, requests);
  try {
    app.parse(count, arguments);
    if (!requests.chosen) throw CLI::RequiredError("A command");
    return *std::move(requests.chosen);
  } catch (const CLI::ParseError& error) {
    return printed(app, error);
  }
}

std::variant<ExitCode, PanelRequest> parsePanelCommandLine(int count,
                                                           const char* const* arguments) {
  CLI::App app("Shows an analog interface module on its panel, or the record of one.",
               "modulinfo-panel");
  describe(app);
  PanelRequest request;
  addModuleOptions(app, request.module, false, lastRate);
  app.add_flag("--read", request.reads, "Read the module at once");
  app.add_option("--record", request.record, "Show the record in this file instead of a module")
      ->type_name("FILE")
      ->check(existingFile())
      ->excludes("--port")
      ->excludes("--simulate")
      ->excludes("--read");
  app.add_option("--screenshot", request.screenshot,
                 "Read the module, draw the window into this PNG file and exit; needs no display")
      ->type_name("FILE");
  app.add_option("--report", request.report,
                 "Read the module, write its record into this PDF file and exit; needs no display")
      ->type_name("FILE");
  try {
    app.parse(count, arguments);
    return request;
  } catch (const CLI::ParseError& error) {
    return printed(app, error);
  }
}

}  // namespace tessara
