#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Locale.h"

namespace tessara {

/// The locale named by the environment: LC_NUMERIC for the decimal separator, LC_TELEPHONE for the
/// country code; LC_ALL overrides both, LANG is the default. The POSIX locale, and one that is not
/// installed, have a decimal point and no country code. Read once, at construction; the program's
/// own locale is not changed.
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
