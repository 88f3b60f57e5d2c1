#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tessara {

/// What `modulinfo read` is to read, and how it is to be printed.
struct ReadRequest {
  /// The port; 999 is the USB NFC reader. Not looked at if a module is simulated.
  std::int16_t comPort = 0;
  /// The file of a module to be simulated in place of a port; empty for none.
  std::string moduleFile;
  std::int32_t baudrate = 19200;
  /// The station address; without one the panel's own stands.
  std::optional<int> address;
  /// The language number; without one that of the settings.
  std::optional<int> language;
  bool json = false;
  bool trace = false;
};

}  // namespace tessara
