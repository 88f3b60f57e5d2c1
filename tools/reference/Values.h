#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tessara {

struct ValueMeaning {
  std::int32_t value;
  std::string_view meaning;
};

/// The values of a member or of its argument, for the reference.
struct ValueTable {
  /// The member's name.
  std::string_view name;
  std::string_view introduction;
  std::span<const ValueMeaning> rows;
};

std::span<const ValueTable> valueTables();

}  // namespace tessara
