#pragma once

#include <cstdint>
#include <map>

#include "linux/ports/DeviceKey.h"

namespace tessara {

/// The memory of which device each COM number belongs to, kept from one start to the next.
class PortNumbers {
 public:
  PortNumbers() = default;
  PortNumbers(const PortNumbers&) = delete;
  PortNumbers& operator=(const PortNumbers&) = delete;
  virtual ~PortNumbers() = default;

  /// Every number that was ever given, with its device. A memory that cannot be read is a
  /// RunTimeError.
  [[nodiscard]] virtual std::map<std::int16_t, DeviceKey> load() const = 0;

  /// From now on the number is that device's. Where it cannot be written down it is remembered as
  /// long as the program runs.
  virtual void store(std::int16_t number, const DeviceKey& device) = 0;
};

}  // namespace tessara
