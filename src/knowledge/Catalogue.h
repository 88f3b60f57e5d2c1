#pragma once

#include <cstdint>
#include <string>

#include "knowledge/CatalogResult.h"
#include "knowledge/DeviceProfile.h"
#include "platform/Locale.h"
#include "platform/RegistryHelper.h"
#include "platform/XmlTree.h"

namespace tessara {

/// The module to look up, and the language of its user.
struct CatalogueQuestion {
  std::int16_t VendorID = 0;
  std::int32_t FamilyID = 0;
  std::int32_t DeviceID = 0;
  std::u16string FwVersion{};
  std::int16_t Language = 0;
};

/// The system's notation of numbers and its country.
struct SystemFormats {
  RegistryHelper& registry;
  const Locale& locale;
};

/// Walks a loaded catalogue from its first family to its last and stores in `profile` what it says
/// about the module. Later entries override earlier ones, and registers are taken from an exact
/// version only.
///
/// A place that must hold a number and does not is a type mismatch (error 13), a level with more
/// than 32768 elements an overflow (error 6). The message names the place; what was written to
/// `profile` so far stays.
CatalogResult findInCatalogue(XmlTree& tree, const CatalogueQuestion& question,
                              SystemFormats formats, DeviceProfile& profile);

}  // namespace tessara
