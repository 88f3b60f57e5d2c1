#include "catalogue/CatalogueCommand.h"

#include <iostream>
#include <memory>

#include "Commands.h"

namespace tessara {

void addCatalogueCommand(CLI::App& app, Command& chosen) {
  CLI::App* catalogue = app.add_subcommand("catalogue", "Check catalogues of modules");
  catalogue->require_subcommand(1);
  const auto files = std::make_shared<std::vector<std::filesystem::path>>();

  CLI::App* checking = catalogue->add_subcommand(
      "check", "Print the entries of catalogues, and what makes lookups fail in which line");
  checking->add_option("FILE", *files, "TessaraDevices.xml, ...")->required();
  checking->callback([&chosen, files] {
    chosen = [files] {
      return runCatalogueCheck(*files, std::cout) ? ExitCode::Done : ExitCode::Failed;
    };
  });
}

}  // namespace tessara
