#pragma once

#include "drivers/nfc/HidDevice.h"

namespace tessara {

/// The USB readers of this computer, through hidapi: USB identity 0483:D0D0. With none plugged in,
/// `open` takes a fraction of a millisecond.
class HidapiReaders final : public UsbReaders {
 public:
  ~HidapiReaders() override;

  std::unique_ptr<HidDevice> open() override;
};

}  // namespace tessara
