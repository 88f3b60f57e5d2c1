#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Locale.h"

namespace tessara {

/// The locale that the environment names: LC_NUMERIC for the decimal separator, LC_TELEPHONE for
/// the country code, each with LC_ALL above it and LANG below. A locale that is not installed, and
/// the POSIX locale, have the point and no country code. Read once, at construction; the
/// program's own locale stays as it is.
class LinuxLocale final : public Locale {
 public:
  LinuxLocale();

  [[nodiscard]] std::u16string decimalSeparator() const override { return decimalSeparator_; }
  [[nodiscard]] std::int32_t countryCodeSize() const override;
  [[nodiscard]] std::optional<std::u16string> countryCode(std::int32_t size) const override;

 private:
  std::u16string decimalSeparator_;
  std::u16string countryCode_;
};

}  // namespace tessara
