#pragma once

#include <cstdint>

#include "platform/RegistryApi.h"

namespace tessara {

/// The registry key under which the system lists its serial ports.
inline constexpr const char* serialCommKey = "HARDWARE\\DEVICEMAP\\SERIALCOMM";

/// That key, opened; it is closed with the object if there is a handle to close.
class SerialCommKey {
 public:
  SerialCommKey(RegistryApi& api, std::uint32_t access)
      : api_(api),
        result_(api.RegOpenKeyExA(RegistryApi::localMachine, serialCommKey, 0, access, key_)) {}
  SerialCommKey(const SerialCommKey&) = delete;
  SerialCommKey& operator=(const SerialCommKey&) = delete;
  ~SerialCommKey() {
    if (key_ != 0) {
      api_.RegCloseKey(key_);
    }
  }

  [[nodiscard]] bool opened() const { return result_ == RegistryApi::success; }
  [[nodiscard]] RegistryKey handle() const { return key_; }

 private:
  RegistryApi& api_;
  RegistryKey key_ = 0;
  std::int32_t result_;
};

}  // namespace tessara
