#pragma once

#include <memory>

#include <CLI/CLI.hpp>

#include "common/ReadRequest.h"

namespace tessara {

/// Adds the options that say which module is meant and how it is reached: --port or --simulate,
/// --baudrate, --address and --language. Without `isNeeded` the module may be left open.
void addModuleOptions(CLI::App& app, const std::shared_ptr<ReadRequest>& request, bool isNeeded);

}  // namespace tessara
