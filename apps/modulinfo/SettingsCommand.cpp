#include <iostream>
#include <string>

#include "Commands.h"
#include "SettingNames.h"
#include "base/RunTimeError.h"
#include "linux/LinuxRegistryHelper.h"
#include "linux/SettingsPorts.h"
#include "linux/SettingsStore.h"

namespace tessara {

namespace {

/// Prints the NAME=VALUE lines of one group, and on standard error what is wrong with the others.
/// Returns false if there are such.
bool printGroup(const std::string& group, const std::string& prefix) {
  const SettingsGroup settings = SettingsStore().group(group);
  for (const auto& [name, text] : settings.values) {
    std::cout << prefix << name << '=' << text << '\n';
  }
  for (const auto& [name, problem] : settings.unusable) {
    std::cerr << "modulinfo: " << problem << '\n';
  }
  for (const std::string& line : settings.skippedLines) {
    std::cerr << "modulinfo: " << line << '\n';
  }
  return settings.unusable.empty() && settings.skippedLines.empty();
}

/// A value that is not usable is set too, and can be removed.
bool isSet(const SettingsStore& store, const std::string& key) {
  try {
    return store.value(key).has_value();
  } catch (const RunTimeError& error) {
    if (error.number() != ErrorNumber::TypeMismatch) throw;
    return true;
  }
}

}  // namespace

ExitCode run(const SettingsListRequest& /*request*/) {
  const std::string ports = SettingsPorts::group;
  const bool isWhole = printGroup(LinuxRegistryHelper::settingsGroup, "");
  return printGroup(ports, ports + '/') && isWhole ? ExitCode::Done : ExitCode::Failed;
}

ExitCode run(const SettingsGetRequest& request) {
  const auto text = SettingsStore().value(settingKey(request.name));
  if (!text) {
    std::cerr << "modulinfo: " << request.name << " is not set\n";
    return ExitCode::Failed;
  }
  std::cout << *text << '\n';
  return ExitCode::Done;
}

ExitCode run(const SettingsSetRequest& request) {
  const std::string key = settingKey(request.name);
  SettingsStore store;
  const std::string problem = settingProblem(request.name, request.text);
  const bool isRemoval = request.text.empty() && isSet(store, key);
  if (!problem.empty() && !isRemoval) {
    std::cerr << "modulinfo: " << problem << '\n';
    return ExitCode::WrongUsage;
  }
  request.text.empty() ? store.remove(key) : store.setValue(key, request.text);
  return ExitCode::Done;
}

}  // namespace tessara
