#pragma once

#include "control/HostEvents.h"
#include "serve/Announcer.h"

namespace tessara {

/// The host of a control that is driven from outside: each callback becomes an `event`. What goes
/// by reference comes back as it went.
class ClientEvents final : public HostEvents {
 public:
  /// The announcer has to outlive the host.
  explicit ClientEvents(const Announcer& announcer) : announcer_(announcer) {}

  void ModulActive(std::int32_t& lStatus) override { raise("ModulActive", {lStatus}); }
  void StatusChange() override { raise("StatusChange"); }
  void SetConfiguration() override { raise("SetConfiguration"); }
  void SaveConfiguration() override { raise("SaveConfiguration"); }
  void LoadConfiguration() override { raise("LoadConfiguration"); }
  void PrintConfiguration() override { raise("PrintConfiguration"); }
  void DataTransfer() override { raise("DataTransfer"); }
  void NFCReader(bool& bNFCReader) override { raise("NFCReader", {bNFCReader}); }

 private:
  void raise(const char* name, std::vector<OrderedJson> args = {}) const {
    announcer_.announce("event", {{"name", name}, {"args", OrderedJson::array_t(std::move(args))}});
  }

  const Announcer& announcer_;
};

}  // namespace tessara
