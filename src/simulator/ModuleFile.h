#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "simulator/ModuleFileError.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

/// The module that a module file describes; docs/simulator.md tells the format. Throws
/// ModuleFileError if the file cannot be read or holds anything that is not understood.
SimulatedModule loadModule(const std::filesystem::path& file);

/// The same from the text of such a file, which is called `source` in messages.
SimulatedModule parseModule(std::string_view text, const std::string& source);

}  // namespace tessara
