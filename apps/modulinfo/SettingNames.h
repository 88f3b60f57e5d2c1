#pragma once

#include <string>

namespace tessara {

/// Where the settings file keeps what the command line calls `name`: "Language" lies in the group
/// "Settings", "Ports/COM9/Device" where it says.
std::string settingKey(const std::string& name);

/// What is wrong with giving that setting that text; empty if nothing is. An empty text, which
/// removes the setting, is right for each; an unknown name is always wrong.
std::string settingProblem(const std::string& name, const std::string& text);

}  // namespace tessara
