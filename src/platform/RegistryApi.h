#pragma once

#include <cstdint>
#include <string>

namespace tessara {

/// An open registry key.
using RegistryKey = std::intptr_t;

/// Types of registry values.
enum class RegistryType : std::uint32_t { String = 1, Number = 4 };

/// The registry calls with which the serial ports of the system are walked. Each gives 0 for
/// success and the system's error number otherwise. Texts are UTF-8, and sizes count their bytes.
class RegistryApi {
 public:
  static constexpr std::int32_t success = 0;
  /// The hive HKEY_LOCAL_MACHINE.
  static constexpr std::int32_t localMachine = -0x7FFFFFFE;

  RegistryApi() = default;
  RegistryApi(const RegistryApi&) = delete;
  RegistryApi& operator=(const RegistryApi&) = delete;
  virtual ~RegistryApi() = default;

  /// Opens the key with those access rights and leaves its handle in `key`.
  virtual std::int32_t RegOpenKeyExA(std::int32_t hive, const std::string& subKey,
                                     std::uint32_t options, std::uint32_t access,
                                     RegistryKey& key) = 0;

  /// The name of the value at `index` from 0. `name` comes with the size of the buffer that is
  /// offered, final zero included; on success its first `length` characters are the value's name.
  virtual std::int32_t RegEnumValueA(RegistryKey key, std::uint32_t index, std::string& name,
                                     std::uint32_t& length) = 0;

  /// Type and size of a value in bytes, and with `data` not null its bytes as far as data->size()
  /// goes. The size of a string counts its final zero.
  virtual std::int32_t RegQueryValueExA(RegistryKey key, const std::string& valueName,
                                        std::uint32_t& type, std::string* data,
                                        std::uint32_t& size) = 0;

  virtual std::int32_t RegCloseKey(RegistryKey key) = 0;
};

}  // namespace tessara
