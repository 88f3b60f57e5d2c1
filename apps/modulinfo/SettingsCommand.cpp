#include <iostream>
#include <memory>
#include <string>

#include "Commands.h"
#include "SettingNames.h"
#include "base/RunTimeError.h"
#include "linux/LinuxRegistryHelper.h"
#include "linux/SettingsPorts.h"
#include "linux/SettingsStore.h"

namespace tessara {

namespace {

/// The arguments of the command.
struct SettingsArguments {
  std::string name;
  std::string text;
};

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

ExitCode list() {
  const std::string ports = SettingsPorts::group;
  const bool isWhole = printGroup(LinuxRegistryHelper::settingsGroup, "");
  return printGroup(ports, ports + '/') && isWhole ? ExitCode::Done : ExitCode::Failed;
}

ExitCode get(const SettingsArguments& arguments) {
  const auto text = SettingsStore().value(settingKey(arguments.name));
  if (!text) {
    std::cerr << "modulinfo: " << arguments.name << " is not set\n";
    return ExitCode::Failed;
  }
  std::cout << *text << '\n';
  return ExitCode::Done;
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

ExitCode set(const SettingsArguments& arguments) {
  const std::string key = settingKey(arguments.name);
  SettingsStore store;
  const std::string problem = settingProblem(arguments.name, arguments.text);
  const bool isRemoval = arguments.text.empty() && isSet(store, key);
  if (!problem.empty() && !isRemoval) {
    std::cerr << "modulinfo: " << problem << '\n';
    return ExitCode::WrongUsage;
  }
  arguments.text.empty() ? store.remove(key) : store.setValue(key, arguments.text);
  return ExitCode::Done;
}

}  // namespace

void addSettingsCommand(CLI::App& app, Command& chosen) {
  CLI::App* settings = app.add_subcommand("settings", "List, read and write the settings");
  settings->require_subcommand(1);
  const auto arguments = std::make_shared<SettingsArguments>();

  settings->add_subcommand("list", "Print all settings as NAME=VALUE lines")->callback([&chosen] {
    chosen = list;
  });

  CLI::App* getting = settings->add_subcommand("get", "Print the value of one setting");
  getting->add_option("NAME", arguments->name, "Language, Ports/COM9/Device, ...")->required();
  getting->callback([&chosen, arguments] { chosen = [arguments] { return get(*arguments); }; });

  CLI::App* setting = settings->add_subcommand("set", "Write one setting");
  setting->add_option("NAME", arguments->name, "Language, Ports/COM9/Device, ...")->required();
  setting->add_option("VALUE", arguments->text, "The new value; an empty one removes the setting")
      ->required();
  setting->callback([&chosen, arguments] { chosen = [arguments] { return set(*arguments); }; });
}

}  // namespace tessara
