#pragma once

#include <memory>

#include "drivers/nfc/HidDevice.h"
#include "serial/PortError.h"

namespace tessara {

/// A computer without a USB reader, or on which none should be looked for.
class NoUsbReaders final : public UsbReaders {
 public:
  std::unique_ptr<HidDevice> open() override { throw PortError::notThere(); }
};

}  // namespace tessara
