#pragma once

#include <cerrno>
#include <memory>

#include "drivers/PortLock.h"
#include "drivers/nfc/HidDevice.h"

namespace tessara {

/// A computer that no USB reader is plugged into, or is to be looked for on.
class NoUsbReaders final : public UsbReaders {
 public:
  std::unique_ptr<HidDevice> open() override { throw PortError::fromErrno(ENODEV); }
};

}  // namespace tessara
