#pragma once

#include <cstdint>

namespace tessara {

/// Shifts device words.
class BitFieldHelper {
 public:
  /// `value` shifted right by `count` bits (0 to 31); the sign moves along.
  [[nodiscard]] std::int32_t ShiftRight(std::int32_t value, std::int32_t count) const {
    return value >> count;
  }
};

}  // namespace tessara
