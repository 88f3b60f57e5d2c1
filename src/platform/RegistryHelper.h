#pragma once

#include <cstdint>
#include <string>

#include "base/Variant.h"

namespace tessara {

/// The settings of the system, addressed as hive, key and value name.
/// A missing key or value reads as nothing; a failure of the store is a RunTimeError.
class RegistryHelper {
 public:
  RegistryHelper() = default;
  RegistryHelper(const RegistryHelper&) = delete;
  RegistryHelper& operator=(const RegistryHelper&) = delete;
  virtual ~RegistryHelper() = default;

  /// The value type of a 32-bit number, for SetValue.
  [[nodiscard]] virtual std::int32_t ValueTypeNumber() const = 0;
  [[nodiscard]] virtual std::int32_t HKeyCurrentUser() const = 0;
  [[nodiscard]] virtual std::int32_t HKeyLocalMachine() const = 0;

  /// Writes the value and creates what is needed for it.
  virtual void SetValue(std::int32_t hive, const std::u16string& key, const std::u16string& name,
                        const Variant& value, std::int32_t valueType) = 0;
  [[nodiscard]] virtual Variant GetValue(std::int32_t hive, const std::u16string& key,
                                         const std::u16string& name) = 0;
};

}  // namespace tessara
