#include <exception>
#include <iostream>

#include "Commands.h"
#include "Version.h"

namespace {

constexpr const char* exitCodes =
    "Exit codes: 0 done, 1 failed, 2 wrong usage, 3 no connection to a module, 4 the module could "
    "not be read.";

int run(int argc, char** argv) {
  CLI::App app("Reads analog interface modules.", "modulinfo");
  app.set_version_flag("--version", std::string("modulinfo ") + tessara::version,
                       "Print the version and exit");
  app.footer(exitCodes);
  app.require_subcommand(0, 1);

  tessara::Command chosen;
  tessara::addCatalogueCommand(app, chosen);
  tessara::addLanguageCommand(app, chosen);
  tessara::addPortsCommand(app, chosen);
  tessara::addReadCommand(app, chosen);
  tessara::addServeCommand(app, chosen);
  tessara::addSettingsCommand(app, chosen);
  tessara::addSimulateCommand(app, chosen);
  try {
    app.parse(argc, argv);
    if (!chosen) throw CLI::RequiredError("A command");
  } catch (const CLI::ParseError& error) {
    const bool isWrong = app.exit(error) != 0;
    return static_cast<int>(isWrong ? tessara::ExitCode::WrongUsage : tessara::ExitCode::Done);
  }
  return static_cast<int>(chosen());
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const int code = run(argc, argv);
    if (std::cout.flush()) return code;
    std::cerr << "modulinfo: standard output cannot be written\n";
  } catch (const std::exception& error) {
    std::cerr << "modulinfo: " << error.what() << '\n';
  }
  return static_cast<int>(tessara::ExitCode::Failed);
}
