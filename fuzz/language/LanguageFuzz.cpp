#include <cstddef>
#include <cstdint>
#include <string>

#include "base/RunTimeError.h"
#include "localisation/Language.h"
#include "localisation/LanguageFile.h"

/// Whatever a language file contains, it loads, is refused or raises a run-time error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const auto* separator : {u".", u","}) {
    tessara::LanguageFile file(std::string(data, data + size));
    tessara::LanguageState state;
    try {
      (void)tessara::readLanguageFile(file, separator, state);
    } catch (const tessara::RunTimeError&) {
      continue;
    }
  }
  return 0;
}
