#pragma once

#include "control/HostEvents.h"
#include "serve/Announcer.h"

namespace tessara {

/// The host of a control that a client drives: each callback becomes an `event`. Arguments by
/// reference are returned unchanged.
class ClientEvents final : public HostEvents {
 public:
  /// The announcer must outlive the host.
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
  void raise(const char* name, const std::vector<JsonText>& args = {}) const {
    announcer_.announce("event",
                        JsonText::object({{"name", name}, {"args", JsonText::list(args)}}));
  }

  const Announcer& announcer_;
};

}  // namespace tessara
