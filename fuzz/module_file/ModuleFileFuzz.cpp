#include <cstddef>
#include <cstdint>
#include <string>

#include "simulator/ModuleFile.h"

/// Any module file describes a module or is refused with its own error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    (void)tessara::parseModule(std::string(data, data + size), "module.json");
  } catch (const tessara::ModuleFileError&) {
    return 0;
  }
  return 0;
}
