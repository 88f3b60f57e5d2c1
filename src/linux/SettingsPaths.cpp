#include "linux/SettingsPaths.h"

#include <cstdlib>
#include <sstream>
#include <string>

#include <glib.h>

#include "linux/SettingsStore.h"

namespace tessara {

namespace fs = std::filesystem;

namespace {

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

fs::path userFolder() {
  const std::string folder = environment("XDG_CONFIG_HOME");
  return folder.empty() ? fs::path(g_get_home_dir()) / ".config" : fs::path(folder);
}

std::vector<fs::path> systemFolders() {
  std::vector<fs::path> folders;
  std::istringstream list(environment("XDG_CONFIG_DIRS"));
  for (std::string folder; std::getline(list, folder, ':');) {
    if (!folder.empty()) folders.emplace_back(folder);
  }
  if (folders.empty()) folders.emplace_back("/etc/xdg");
  return folders;
}

}  // namespace

std::vector<fs::path> settingsPaths() {
  const std::string ofOrganisation = std::string(SettingsStore::organisation) + ".ini";
  const fs::path ofApplication =
      fs::path(SettingsStore::organisation) / (std::string(SettingsStore::application) + ".ini");
  std::vector<fs::path> paths{userFolder() / ofApplication, userFolder() / ofOrganisation};
  for (const fs::path& file : {ofApplication, fs::path(ofOrganisation)}) {
    for (const fs::path& folder : systemFolders()) paths.push_back(folder / file);
  }
  return paths;
}

}  // namespace tessara
