#pragma once

#include <cstddef>

namespace tessara::testing {

/// What this process holds of resources that can leak.
struct Resources {
  std::size_t heapBytes = 0;
  std::size_t descriptors = 0;

  static Resources now();
};

}  // namespace tessara::testing
