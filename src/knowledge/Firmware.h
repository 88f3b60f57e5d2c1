#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "knowledge/CatalogResult.h"
#include "platform/RegistryHelper.h"

namespace tessara {

/// The VendorID of modules that are read with HART commands. Their firmware is free text, that of
/// all others a number.
inline constexpr std::int16_t hartVendor = 176;

/// Compares a module's firmware with a version of the catalogue. Free texts are equal or have no
/// order; numbers are compared with three decimals, with a point or a comma, and a text that is not
/// a number is a type mismatch (error 13).
///
/// `registry` holds the separator that ToLocaleDecimal writes, `separator` is the one that
/// conversion to numbers expects; on a properly configured system they are the same.
CatalogResult compareFirmware(std::int16_t VendorID, const std::u16string& moduleVersion,
                              const std::u16string& catalogueVersion, RegistryHelper& registry,
                              std::u16string_view separator);

}  // namespace tessara
