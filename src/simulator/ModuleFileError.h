#pragma once

#include <stdexcept>

namespace tessara {

/// A module file cannot be used. The message names the file, the path in it ("faults[0].kind") and
/// what is wrong there.
class ModuleFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tessara
