#include "localisation/Language.h"

#include "platform/Variant.h"

namespace tessara {

std::int32_t GetSystemCountryCode(const Locale& locale) {
  const auto size = locale.countryCodeSize();
  if (size <= 0) {
    return 0;
  }
  const auto buffer = locale.countryCode(size);
  if (!buffer) {
    return 0;
  }
  return toInt32(Variant{buffer->substr(0, buffer->find(u'\0'))}, locale.decimalSeparator());
}

}  // namespace tessara
