#pragma once

#include "commandline/CommandRequest.h"

namespace tessara {

// The commands. Each carries its request out and returns how the program ends. Standard output
// takes the result and nothing else; what went wrong is printed on standard error.

ExitCode run(const CatalogueCheckRequest& request);
ExitCode run(const LanguageCheckRequest& request);
ExitCode run(const LanguageBuildRequest& request);
ExitCode run(const PortsRequest& request);
ExitCode run(const ReadRequest& request);
ExitCode run(const ServeRequest& request);
ExitCode run(const SettingsListRequest& request);
ExitCode run(const SettingsGetRequest& request);
ExitCode run(const SettingsSetRequest& request);
ExitCode run(const SimulateRequest& request);

}  // namespace tessara
