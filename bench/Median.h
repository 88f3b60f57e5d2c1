#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tessara::bench {

/// The value in the middle of an odd number of measurements, which a few disturbed ones leave
/// alone.
inline double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace tessara::bench
