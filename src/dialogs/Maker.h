#pragma once

#include <string_view>

namespace tessara {

/// The manufacturer of the product, as set when the build was configured (cmake/Maker.cmake).
struct Maker {
  std::u16string_view company;
  std::u16string_view address1;
  std::u16string_view address2;
  std::u16string_view phone;
  std::u16string_view fax;
  /// A mail address without a scheme.
  std::u16string_view mail;
  /// A web address, with or without a scheme.
  std::u16string_view web;
  std::u16string_view year;
  /// The version of the product, for hosts without one of their own.
  std::u16string_view version;
};

extern const Maker maker;

}  // namespace tessara
