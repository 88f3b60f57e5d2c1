#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "json/JsonReader.h"
#include "simulator/ModuleFileError.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

/// The Modbus module that a module file describes; docs/simulator.md has the format. Throws
/// ModuleFileError if the file cannot be read or holds anything unknown.
SimulatedModule loadModule(const std::filesystem::path& file);

/// The same from the text of such a file, which messages call `source`.
SimulatedModule parseModule(std::string_view text, const std::string& source);

/// The same from the parsed contents of a file for any link by which a module's registers can be
/// reached. `otherKeys` are those that the link adds and others read. Throws JsonError.
SimulatedModule readModule(const JsonReader& root,
                           const std::vector<std::string_view>& otherKeys = {});

/// The bytes of a module file. Throws ModuleFileError if it cannot be read.
std::string moduleFileText(const std::filesystem::path& file);

/// What `read` makes of the text of a module file, which messages call `source`. Throws
/// ModuleFileError if the text is not JSON, and in place of a JsonError.
template <class Read>
auto readModuleText(std::string_view text, const std::string& source, Read read) {
  try {
    return read(JsonReader::parse(text, "", RepeatedKeys::Refused));
  } catch (const JsonSyntaxError& error) {
    throw ModuleFileError(source + ": " + error.what());
  } catch (const JsonError& error) {
    throw ModuleFileError(source + ": " + error.what());
  }
}

/// The same for a file.
template <class Read>
auto readModuleFile(const std::filesystem::path& file, Read read) {
  return readModuleText(moduleFileText(file), file.string(), read);
}

}  // namespace tessara
