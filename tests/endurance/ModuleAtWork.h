#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "PluggedModule.h"
#include "SteppedLoop.h"
#include "control/ModulInfoFLII.h"
#include "linux/LinuxPlatform.h"

namespace tessara::testing {

/// How long something took, and for how much of that this thread ran.
struct Effort {
  std::chrono::duration<double> wall{0};
  std::chrono::duration<double> work{0};
};

/// A whole control with a real driver and a simulated module, and a host that records everything.
class ModuleAtWork final : private HostEvents {
 public:
  explicit ModuleAtWork(const std::filesystem::path& moduleFile);

  PluggedModule module;
  SteppedLoop loop;

  /// Runs after each call to the module has returned, with the calls since forget() so far.
  std::function<void(std::size_t calls)> afterCall = [](std::size_t) {};

  /// What has happened since forget(): the calls to the module, the callbacks by their value, and
  /// the status texts in their order, each new one once.
  std::vector<DeviceCall> calls;
  std::map<Activity, int> activities;
  std::vector<std::u16string> statusTexts;
  void forget();

  /// Presses the read button, at the module's rate.
  void read();
  [[nodiscard]] bool isRead() const { return control_.get_DataValid() == 1; }
  [[nodiscard]] const ModulInfoFLII& control() const { return control_; }

  /// How many of the calls since forget() have failed.
  [[nodiscard]] std::ptrdiff_t failedCalls() const;
  [[nodiscard]] std::ptrdiff_t callsOf(const std::string& operation) const;

  /// Runs `action` and returns what it took.
  static Effort effortOf(const std::function<void()>& action);

 private:
  void ModulActive(std::int32_t& lStatus) override;
  void StatusChange() override;
  void SetConfiguration() override {}
  void SaveConfiguration() override {}
  void LoadConfiguration() override {}
  void PrintConfiguration() override {}
  void DataTransfer() override {}
  void NFCReader(bool& /*bNFCReader*/) override {}

  LinuxPlatformOptions options();

  LinuxPlatform platform_;
  ModulInfoFLII control_;
};

}  // namespace tessara::testing
