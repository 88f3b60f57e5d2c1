#pragma once

#include <functional>
#include <string>

#include "CallLog.h"
#include "control/HostEvents.h"

namespace tessara::testing {

/// A host that writes each callback into the log: "ModulActive(1)", "StatusChange", ...
class FakeHost : public HostEvents {
 public:
  explicit FakeHost(CallLog& log) : log_(log) {}

  void ModulActive(std::int32_t& lStatus) override {
    add("ModulActive(" + std::to_string(lStatus) + ")");
  }
  void StatusChange() override { add("StatusChange" + statusText()); }
  void SetConfiguration() override { add("SetConfiguration"); }
  void SaveConfiguration() override { add("SaveConfiguration"); }
  void LoadConfiguration() override { add("LoadConfiguration"); }
  void PrintConfiguration() override { add("PrintConfiguration"); }
  void DataTransfer() override { add("DataTransfer"); }
  void NFCReader(bool& bNFCReader) override {
    add(std::string("NFCReader(") + (bNFCReader ? "true" : "false") + ")");
  }

  /// What a host reads when StatusChange comes: "(text)" behind the entry.
  std::function<std::string()> statusText = [] { return std::string(); };
  /// Runs inside every callback with its entry.
  std::function<void(const std::string&)> onCallback = [](const std::string&) {};

 private:
  void add(const std::string& entry) {
    log_.add(entry);
    onCallback(entry);
  }

  CallLog& log_;
};

}  // namespace tessara::testing
