#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <string>
#include <utility>

#include "base/RunTimeError.h"

namespace tessara {

/// A table with a fixed number of slots, initially default values. Every access checks the index;
/// one out of range is a subscript error (9) that names the table.
template <typename Entry, std::size_t Slots>
class FixedTable {
 public:
  explicit constexpr FixedTable(const char* name) : name_(name) {}

  [[nodiscard]] static constexpr std::size_t size() { return Slots; }

  const Entry& operator[](std::integral auto index) const { return entries_[checked(index)]; }
  Entry& operator[](std::integral auto index) { return entries_[checked(index)]; }

 private:
  [[nodiscard]] std::size_t checked(std::integral auto index) const {
    if (std::cmp_less(index, 0) || std::cmp_greater_equal(index, Slots)) {
      throw RunTimeError(ErrorNumber::Subscript, std::string(name_) + " has no entry " +
                                                     std::to_string(index) + ", only 0 to " +
                                                     std::to_string(Slots - 1));
    }
    return static_cast<std::size_t>(index);
  }

  const char* name_;
  std::array<Entry, Slots> entries_{};
};

}  // namespace tessara
