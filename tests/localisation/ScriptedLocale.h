#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Locale.h"

namespace tessara::testing {

/// A locale with given answers that records the sizes it was called with, 0 for a query of the
/// size.
class ScriptedLocale : public Locale {
 public:
  [[nodiscard]] std::u16string decimalSeparator() const override { return separator; }
  [[nodiscard]] std::int32_t countryCodeSize() const override {
    calls.push_back(0);
    return size;
  }
  [[nodiscard]] std::optional<std::u16string> countryCode(std::int32_t bufferSize) const override {
    calls.push_back(bufferSize);
    return code;
  }

  /// A system in the country of that telephone code.
  static void standIn(ScriptedLocale& locale, const std::u16string& country) {
    locale.code = country + u'\0';
    locale.size = static_cast<std::int32_t>(locale.code->size());
  }

  std::u16string separator = u".";
  std::int32_t size = 0;
  std::optional<std::u16string> code;
  mutable std::vector<std::int32_t> calls;
};

}  // namespace tessara::testing
