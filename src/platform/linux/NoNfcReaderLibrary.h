#pragma once

#include "platform/NfcReaderLibrary.h"

namespace tessara {

/// The reader library of a build that can drive no USB NFC reader: there never is one.
class NoNfcReaderLibrary final : public NfcReaderLibrary {
 public:
  static constexpr std::int32_t noReader = 1;

  std::int32_t CR95HFDLL_USBconnect() override { return noReader; }
  std::int32_t CR95HFDll_Echo(std::string& /*reply*/) override { return noReader; }
  std::int32_t CR95HFDLL_getMCUrev(std::string& /*reply*/) override { return noReader; }
};

}  // namespace tessara
