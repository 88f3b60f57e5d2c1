#pragma once

#include <functional>

#include <CLI/CLI.hpp>

#include "common/ExitCode.h"

namespace tessara {

/// What the command line asks for, to be run after it was found to be right.
using Command = std::function<ExitCode()>;

/// Each adds one command with its options to `app` and, if it is the one called, leaves its work in
/// `chosen`. Standard output takes the result and nothing else; what went wrong goes to standard
/// error.
void addCatalogueCommand(CLI::App& app, Command& chosen);
void addLanguageCommand(CLI::App& app, Command& chosen);
void addPortsCommand(CLI::App& app, Command& chosen);
void addReadCommand(CLI::App& app, Command& chosen);
void addServeCommand(CLI::App& app, Command& chosen);
void addSettingsCommand(CLI::App& app, Command& chosen);
void addSimulateCommand(CLI::App& app, Command& chosen);

}  // namespace tessara
