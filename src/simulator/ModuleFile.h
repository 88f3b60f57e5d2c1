#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/JsonNode.h"
#include "simulator/ModuleFileError.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

/// The Modbus module that a module file describes; docs/simulator.md tells the format. Throws
/// ModuleFileError if the file cannot be read or holds anything that is not understood.
SimulatedModule loadModule(const std::filesystem::path& file);

/// The same from the text of such a file, which is called `source` in messages.
SimulatedModule parseModule(std::string_view text, const std::string& source);

/// The same from the parsed contents of a file for any link by which a module's registers can be
/// reached. `otherKeys` are those that the link adds and somebody else reads.
SimulatedModule readModule(const JsonNode& root,
                           const std::vector<std::string_view>& otherKeys = {});

/// The contents of a module file, whatever link it is for. Throws ModuleFileError if the file
/// cannot be read or is no JSON.
JsonNode parseModuleFile(const std::filesystem::path& file);

}  // namespace tessara
