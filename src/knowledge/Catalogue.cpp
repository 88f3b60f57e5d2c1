#include "knowledge/Catalogue.h"

#include <array>
#include <optional>

#include "base/RunTimeError.h"
#include "base/Variant.h"
#include "knowledge/Datasheet.h"
#include "knowledge/Firmware.h"

namespace tessara {
namespace {

constexpr auto deviceTag = "Device";
constexpr auto versionTag = "Version";
constexpr auto productLinkTag = "ProductLink";
constexpr auto packbLinkTag = "Packb";
/// Families may have any tag; messages use this name.
constexpr auto familyLevel = "family element";

/// The catalogue's attributes are identified by their places alone.
namespace familyPlace {
constexpr std::int32_t vendorID = 0;
constexpr std::int32_t familyID = 1;
}  // namespace familyPlace
namespace devicePlace {
constexpr std::int32_t deviceID = 0;
constexpr std::int32_t hideFwVersion = 1;
}  // namespace devicePlace
namespace versionPlace {
constexpr std::int32_t firmware = 0;
constexpr std::int32_t note = 2;
constexpr std::int32_t quickSetupMode = 10;
}  // namespace versionPlace

struct ProfilePlace {
  std::int32_t place;
  std::int32_t DeviceProfile::*field;
};

/// What is taken only from the entry of the exact firmware version.
constexpr std::array<ProfilePlace, 7> exactVersionPlaces{{
    {3, &DeviceProfile::RegDevStatus},
    {4, &DeviceProfile::RegChnIn},
    {5, &DeviceProfile::RegDevError},
    {6, &DeviceProfile::RegChnOut},
    {7, &DeviceProfile::RegLedStatus},
    {8, &DeviceProfile::RegReserved},
    {9, &DeviceProfile::StringsReverse},
}};

/// The number in a text of up to nine plain digits, which mean the same in every notation; nothing
/// for any other text. Most attributes of a catalogue are of this kind.
std::optional<std::int32_t> digitsOnly(const std::u16string& text) {
  constexpr std::size_t maxDigits = 9;
  if (text.empty() || text.size() > maxDigits) {
    return std::nullopt;
  }
  std::int32_t number = 0;
  for (const char16_t digit : text) {
    if (digit < u'0' || digit > u'9') {
      return std::nullopt;
    }
    number = number * 10 + (digit - u'0');
  }
  return number;
}

class CatalogueWalk {
 public:
  CatalogueWalk(XmlTree& tree, const CatalogueQuestion& question, SystemFormats formats,
                DeviceProfile& profile)
      : tree_(tree),
        question_(question),
        formats_(formats),
        profile_(profile),
        separator_(formats.locale.decimalSeparator()) {}

  CatalogResult run() {
    const XmlTree::Element root = tree_.root();
    const std::int16_t last =
        narrowToInt16(tree_.childCount(root) - 1, "the catalogue's last family element");
    XmlTree::Element family;
    for (std::int32_t place = 0; place <= last; ++place) {
      family = tree_.child(root, place);
      visitFamily(family);
    }
    tree_.close(family);
    return result_;
  }

 private:
  void visitFamily(XmlTree::Element family) {
    const std::int32_t vendorID = integer(family, familyPlace::vendorID, familyLevel);
    const std::int32_t familyID = integer(family, familyPlace::familyID, familyLevel);
    if (vendorID != question_.VendorID || familyID != question_.FamilyID) {
      return;
    }
    const std::int16_t last =
        narrowToInt16(tree_.countByTag(family, deviceTag) - 1, "a family's last Device");
    for (std::int32_t place = 0; place <= last; ++place) {
      visitDevice(tree_.nthByTag(family, deviceTag, place));
    }
  }

  void visitDevice(XmlTree::Element device) {
    const std::int32_t deviceID = integer(device, devicePlace::deviceID, deviceTag);
    const std::int32_t hideFwVersion = integer(device, devicePlace::hideFwVersion, deviceTag);
    const std::int16_t last =
        narrowToInt16(tree_.countByTag(device, versionTag) - 1, "a Device's last Version");
    if (deviceID != question_.DeviceID) {
      return;
    }
    profile_.ProductLink = linkIn(device, productLinkTag);
    profile_.PackbLink = linkIn(device, packbLinkTag);
    profile_.DatasheetLink = linkIn(device, datasheetTag(question_.Language, formats_.locale));
    profile_.HideFwVersion = hideFwVersion;
    result_ = CatalogResult::CatalogNoVersion;
    for (std::int32_t place = 0; place <= last && result_ != CatalogResult::CatalogExact; ++place) {
      visitVersion(tree_.nthByTag(device, versionTag, place));
    }
  }

  void visitVersion(XmlTree::Element version) {
    const std::u16string firmware = tree_.attribute(version, versionPlace::firmware);
    // The note is for people who read the file; it is fetched and dropped.
    (void)tree_.attribute(version, versionPlace::note);
    result_ = compareFirmware(question_.VendorID, question_.FwVersion, firmware, formats_.registry,
                              separator_);
    profile_.QuickSetupMode = integer(version, versionPlace::quickSetupMode, versionTag);
    if (result_ == CatalogResult::CatalogExact) {
      for (const ProfilePlace& row : exactVersionPlaces) {
        profile_.*row.field = integer(version, row.place, versionTag);
      }
    }
  }

  /// The text of the first child with that tag; empty if there is none.
  std::u16string linkIn(XmlTree::Element device, const char* tag) const {
    const XmlTree::Element link = tree_.nthByTag(device, tag, 0);
    return link.node == nullptr ? std::u16string{} : tree_.text(link);
  }

  std::int32_t integer(XmlTree::Element element, std::int32_t place, const char* level) const {
    const std::u16string text = tree_.attribute(element, place);
    if (const auto number = digitsOnly(text)) {
      return *number;
    }
    try {
      return toInt32(text, separator_);
    } catch (const RunTimeError& error) {
      throw RunTimeError(error.number(), std::string("attribute ") + std::to_string(place) +
                                             " (counted from 0) of a " + level +
                                             " of the catalogue: " + error.what());
    }
  }

  XmlTree& tree_;
  const CatalogueQuestion& question_;
  SystemFormats formats_;
  DeviceProfile& profile_;
  std::u16string separator_;
  CatalogResult result_ = CatalogResult::CatalogNoDevice;
};

}  // namespace

CatalogResult findInCatalogue(XmlTree& tree, const CatalogueQuestion& question,
                              SystemFormats formats, DeviceProfile& profile) {
  return CatalogueWalk(tree, question, formats, profile).run();
}

}  // namespace tessara
