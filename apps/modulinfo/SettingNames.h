#pragma once

#include <string>

namespace tessara {

/// The name in the settings file for `name` on the command line: "Settings/Language" for
/// "Language"; "Ports/COM9/Device" stays.
std::string settingKey(const std::string& name);

/// What is wrong with setting `name` to `text`; empty if nothing is. An empty text, which removes
/// the setting, suits every setting; an unknown name is always wrong.
std::string settingProblem(const std::string& name, const std::string& text);

}  // namespace tessara
