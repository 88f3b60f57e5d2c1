#include <iostream>
#include <memory>
#include <string>

#include "Commands.h"
#include "SettingNames.h"
#include "linux/LinuxRegistryHelper.h"
#include "linux/SettingsPorts.h"
#include "linux/SettingsStore.h"

namespace tessara {

namespace {

/// What stands behind the command's name.
struct SettingsArguments {
  std::string name;
  std::string text;
};

/// NAME=VALUE lines of one group.
std::string groupText(const SettingsStore& store, const std::string& group,
                      const std::string& prefix) {
  std::string lines;
  for (const auto& [name, text] : store.values(group)) {
    lines.append(prefix).append(name).append("=").append(text).append("\n");
  }
  return lines;
}

ExitCode list() {
  const SettingsStore store;
  const std::string ports = SettingsPorts::group;
  std::cout << groupText(store, LinuxRegistryHelper::settingsGroup, "") +
                   groupText(store, ports, ports + '/');
  return ExitCode::Done;
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

ExitCode set(const SettingsArguments& arguments) {
  const std::string key = settingKey(arguments.name);
  SettingsStore store;
  const std::string problem = settingProblem(arguments.name, arguments.text);
  const bool isRemoval = arguments.text.empty() && store.value(key).has_value();
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
