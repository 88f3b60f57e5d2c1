#pragma once

#include <cstdint>
#include <map>

#include "linux/ports/DeviceKey.h"

namespace tessara {

/// A persistent record of which device each COM number belongs to.
class PortNumbers {
 public:
  PortNumbers() = default;
  PortNumbers(const PortNumbers&) = delete;
  PortNumbers& operator=(const PortNumbers&) = delete;
  virtual ~PortNumbers() = default;

  /// Every number that has been assigned, with its device. Throws a RunTimeError if the record
  /// cannot be read.
  [[nodiscard]] virtual std::map<std::int16_t, DeviceKey> load() const = 0;

  /// Assigns the number to that device. If the record cannot be written, this holds as long as the
  /// program runs.
  virtual void store(std::int16_t number, const DeviceKey& device) = 0;
};

}  // namespace tessara
