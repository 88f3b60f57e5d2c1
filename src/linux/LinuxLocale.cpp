#include "linux/LinuxLocale.h"

#include <clocale>

#include <langinfo.h>

#include "base/Text.h"

namespace tessara {

namespace {

/// The item in the environment's locale; `otherwise` if there is no such locale.
std::u16string localeText(int category, nl_item item, std::u16string otherwise) {
  const locale_t locale = ::newlocale(category, "", nullptr);
  if (locale == nullptr) return otherwise;
  const std::u16string text = fromUtf8(::nl_langinfo_l(item, locale));
  ::freelocale(locale);
  return text.empty() ? otherwise : text;
}

}  // namespace

LinuxLocale::LinuxLocale()
    : decimalSeparator_(localeText(LC_NUMERIC_MASK, RADIXCHAR, u".")),
      countryCode_(localeText(LC_TELEPHONE_MASK, _NL_TELEPHONE_INT_PREFIX, u"")) {}

std::int32_t LinuxLocale::countryCodeSize() const {
  return countryCode_.empty() ? 0 : static_cast<std::int32_t>(countryCode_.size()) + 1;
}

std::optional<std::u16string> LinuxLocale::countryCode(std::int32_t size) const {
  if (countryCode_.empty() || size < countryCodeSize()) return std::nullopt;
  std::u16string buffer = countryCode_;
  buffer.resize(static_cast<std::size_t>(size));
  return buffer;
}

}  // namespace tessara
