#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tessara {

/// What the system says of the country that it stands in.
class Locale {
 public:
  Locale() = default;
  Locale(const Locale&) = delete;
  Locale& operator=(const Locale&) = delete;
  virtual ~Locale() = default;

  /// The sign between whole and fractional digits that text-to-number conversion follows.
  [[nodiscard]] virtual std::u16string decimalSeparator() const = 0;

  /// The number of characters that the telephone country code needs, its final zero included;
  /// 0 or less when there is none to be had.
  [[nodiscard]] virtual std::int32_t countryCodeSize() const = 0;

  /// The telephone country code as text in a buffer of `size` characters; nothing on failure.
  [[nodiscard]] virtual std::optional<std::u16string> countryCode(std::int32_t size) const = 0;
};

}  // namespace tessara
