#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "Commands.h"
#include "simulator/RunSimulator.h"

namespace tessara {

namespace {

struct SimulateArguments {
  std::vector<std::string> modules;
  bool paced = false;
};

}  // namespace

void addSimulateCommand(CLI::App& app, Command& chosen) {
  CLI::App* simulating =
      app.add_subcommand("simulate", "Serve modules on virtual ports until the program is ended");
  const auto arguments = std::make_shared<SimulateArguments>();
  simulating->add_option("MODULE", arguments->modules, "Module files, one port each")
      ->required()
      ->check(CLI::ExistingFile);
  simulating->add_flag("--paced", arguments->paced, "Send bytes at the rate of the line");
  simulating->callback([&chosen, arguments] {
    chosen = [arguments] {
      return static_cast<ExitCode>(
          runSimulator(arguments->modules, arguments->paced, std::cout, std::cerr));
    };
  });
}

}  // namespace tessara
