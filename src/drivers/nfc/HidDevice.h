#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "drivers/nfc/Cr95Hf.h"

namespace tessara {

/// The USB reader as a device that exchanges reports. Both functions throw NfcFault (NoReader) once
/// it has been unplugged.
class HidDevice {
 public:
  HidDevice() = default;
  HidDevice(const HidDevice&) = delete;
  HidDevice& operator=(const HidDevice&) = delete;
  virtual ~HidDevice() = default;

  virtual void write(const cr95hf::Report& report) = 0;

  /// The next report, as soon as it comes; nothing if none comes within the time.
  virtual std::optional<Bytes> read(std::chrono::milliseconds timeout) = 0;

  /// Its name for people: "/dev/hidraw0".
  [[nodiscard]] virtual std::string name() const = 0;
};

/// The USB readers that there are.
class UsbReaders {
 public:
  UsbReaders() = default;
  UsbReaders(const UsbReaders&) = delete;
  UsbReaders& operator=(const UsbReaders&) = delete;
  virtual ~UsbReaders() = default;

  /// Opens the reader for exclusive use. Throws PortError if there is none, or it is in use, or may
  /// not be opened.
  virtual std::unique_ptr<HidDevice> open() = 0;
};

}  // namespace tessara
