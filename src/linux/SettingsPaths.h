#pragma once

#include <filesystem>
#include <vector>

namespace tessara {

/// Where the settings lie, the user's file first, then those that it goes before. All readers and
/// writers of these files, now and earlier, look into the same places in the same order:
/// Orvane/Tessara-Conf.ini and Orvane.ini in $XDG_CONFIG_HOME (~/.config if it is not set), then
/// files of these names in the folders of $XDG_CONFIG_DIRS (/etc/xdg if it is not set). The
/// environment is read at each call.
std::vector<std::filesystem::path> settingsPaths();

}  // namespace tessara
