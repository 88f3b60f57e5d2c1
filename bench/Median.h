#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tessara::bench {

/// The median of an odd number of measurements; a few outliers do not change it.
inline double median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

}  // namespace tessara::bench
