#pragma once

#include "control/HostEvents.h"

namespace tessara::bench {

/// A host that ignores every callback.
class SilentHost final : public HostEvents {
 public:
  void ModulActive(std::int32_t& /*lStatus*/) override {}
  void StatusChange() override {}
  void SetConfiguration() override {}
  void SaveConfiguration() override {}
  void LoadConfiguration() override {}
  void PrintConfiguration() override {}
  void DataTransfer() override {}
  void NFCReader(bool& /*bNFCReader*/) override {}
};

}  // namespace tessara::bench
