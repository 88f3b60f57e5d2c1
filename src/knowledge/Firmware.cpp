#include "knowledge/Firmware.h"

#include "knowledge/Conversions.h"

namespace tessara {

CatalogResult compareFirmware(std::int16_t VendorID, const std::u16string& moduleVersion,
                              const std::u16string& catalogueVersion, RegistryHelper& registry,
                              std::u16string_view separator) {
  if (VendorID == hartVendor) {
    return moduleVersion == catalogueVersion ? CatalogResult::CatalogExact
                                             : CatalogResult::CatalogNoVersion;
  }
  const auto number = [&](const std::u16string& version) {
    return RoundToThreeDecimals(toDouble(ToLocaleDecimal(version, registry), separator));
  };
  const double module = number(moduleVersion);
  const double catalogue = number(catalogueVersion);
  if (catalogue < module) {
    return CatalogResult::CatalogFwNewer;
  }
  if (catalogue == module) {
    return CatalogResult::CatalogExact;
  }
  return catalogue > module ? CatalogResult::CatalogFwOlder : CatalogResult::CatalogNoVersion;
}

}  // namespace tessara
