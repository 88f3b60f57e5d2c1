#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "serial/LineSettings.h"

namespace tessara {

/// Which module is meant, and how it is read.
struct ModuleRequest {
  /// The port; 999 is the USB NFC reader, 0 stands for none. Ignored if a module is simulated.
  std::int16_t comPort = 0;
  /// The file of a module to simulate in place of a port; empty for none.
  std::string moduleFile;
  /// Bit/s, minBaudrate or more; nothing for the rate of the program.
  std::optional<std::int32_t> baudrate;
  /// The address of the module; nothing for that of the panel.
  std::optional<std::int32_t> address;
  /// The language number; nothing for that of the settings.
  std::optional<std::int32_t> language;
};

/// Bit/s, unless the user names another rate.
inline constexpr std::int32_t defaultBaudrate = 19200;
/// Bit/s. At a lower rate a read would block its caller for minutes.
inline constexpr std::int32_t minBaudrate = minLineRate;

/// The widest range of addresses, that of Modbus and HART together.
inline constexpr std::int32_t minRequestAddress = 0;
inline constexpr std::int32_t maxRequestAddress = 247;

}  // namespace tessara
