#pragma once

#include <string>
#include <vector>

namespace tessara::testing {

/// The bytes of a file, and what is special about it.
struct PictureSample {
  std::string name;
  std::string bytes;
};

/// Files that every picture loader takes.
std::vector<PictureSample> pictures();

/// Files that every picture loader refuses: cut off, damaged, larger than any memory.
std::vector<PictureSample> notPictures();

}  // namespace tessara::testing
