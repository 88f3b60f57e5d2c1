#include "tools/language/LanguageCommand.h"

#include <iostream>
#include <memory>

#include "Commands.h"

namespace tessara {
namespace {

/// What stands behind the command's name.
struct LanguageArguments {
  std::vector<std::filesystem::path> files;
  std::filesystem::path source;
  std::filesystem::path result;
};

ExitCode exitCode(bool isGood) {
  return isGood ? ExitCode::Done : ExitCode::Failed;
}

}  // namespace

void addLanguageCommand(CLI::App& app, Command& chosen) {
  CLI::App* language = app.add_subcommand("language", "Check and make language files");
  language->require_subcommand(1);
  const auto arguments = std::make_shared<LanguageArguments>();

  CLI::App* checking = language->add_subcommand(
      "check", "Print what language files load as, and what is wrong with which line");
  checking->add_option("FILE", arguments->files, "MERIDEX_CONF.elg, ...")->required();
  checking->callback([&chosen, arguments] {
    chosen = [arguments] { return exitCode(runLanguageCheck(arguments->files, std::cout)); };
  });

  CLI::App* building = language->add_subcommand("build", "Make a language file from its source");
  building->add_option("SOURCE", arguments->source, "UTF-8 text with numbered entries")->required();
  building->add_option("OUT", arguments->result, "The language file to write")->required();
  building->callback([&chosen, arguments] {
    chosen = [arguments] {
      return exitCode(runLanguageBuild(arguments->source, arguments->result, std::cerr));
    };
  });
}

}  // namespace tessara
