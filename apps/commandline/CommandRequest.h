#pragma once

#include <filesystem>
#include <string>
#include <variant>
#include <vector>

#include "common/ExitCode.h"
#include "common/ModuleRequest.h"

namespace tessara {

// What the command line of `modulinfo` asks for, one struct a command.

struct CatalogueCheckRequest {
  std::vector<std::filesystem::path> files;
};

struct LanguageCheckRequest {
  std::vector<std::filesystem::path> files;
};

struct LanguageBuildRequest {
  std::filesystem::path source;
  std::filesystem::path result;
};

struct PortsRequest {
  bool json = false;
};

struct ReadRequest {
  ModuleRequest module;
  bool json = false;
  bool trace = false;
};

struct ServeRequest {
  bool trace = false;
  bool reentrant = false;
  /// The file of a module to simulate beside the control; empty for none.
  std::string moduleFile;
};

struct SettingsListRequest {};

struct SettingsGetRequest {
  std::string name;
};

struct SettingsSetRequest {
  std::string name;
  /// Empty to remove the setting.
  std::string text;
};

struct SimulateRequest {
  std::vector<std::string> moduleFiles;
  /// Send bytes at the rate of the line.
  bool isPaced = false;
};

/// A command, or the exit code of a program that has printed its help, its version or a complaint
/// and is done.
using CommandRequest =
    std::variant<ExitCode, CatalogueCheckRequest, LanguageCheckRequest, LanguageBuildRequest,
                 PortsRequest, ReadRequest, ServeRequest, SettingsListRequest, SettingsGetRequest,
                 SettingsSetRequest, SimulateRequest>;

}  // namespace tessara
