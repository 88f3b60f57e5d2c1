#include "catalogue/CatalogueWalk.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "base/Text.h"
#include "base/Variant.h"
#include "catalogue/CataloguePlaces.h"
#include "catalogue/Notation.h"
#include "knowledge/Firmware.h"

namespace tessara {
namespace {

constexpr auto deviceTag = "Device";
constexpr auto versionTag = "Version";
/// Lookups count the elements of a level in 16 bits.
constexpr std::size_t maxChildren = 32768;
/// A firmware register holds four digits of up to 15 each, the first of them before the point.
constexpr double maxFirmware = 16.665;

/// A link of a `Device`. A data sheet has readers who are given no other one.
struct LinkTag {
  const char* tag;
  const char* readers;
};
constexpr std::array<LinkTag, 6> linkTags{{
    {"ProductLink", nullptr},
    {"Packb", nullptr},
    {"DatasheetDE", "German"},
    {"DatasheetEN", "English and most other"},
    {"DatasheetFR", "French"},
    {"DatasheetIT", "Italian"},
}};

const std::set<std::string> familyTags{deviceTag};
const std::set<std::string> deviceTags = [] {
  std::set<std::string> tags{versionTag};
  for (const LinkTag& link : linkTags) {
    tags.insert(link.tag);
  }
  return tags;
}();

/// The lines in which something was found first, by what it was.
using FirstLines = std::map<std::vector<std::u16string>, std::size_t>;

class CatalogueCheck {
 public:
  CatalogueCheck(const XmlDocument& document, CatalogueReport& report)
      : document_(document), report_(report) {}

  void run() {
    const std::vector<const XmlElement*> families = children(document_.root());
    checkCount(document_.root(), families.size(), "families");
    for (const XmlElement* family : families) {
      visitFamily(*family);
    }
  }

 private:
  [[nodiscard]] std::vector<const XmlElement*> children(const XmlElement& parent) const {
    std::vector<const XmlElement*> all;
    all.reserve(parent.childCount);
    for (std::size_t i = 0; i < parent.childCount; ++i) {
      all.push_back(&document_.child(parent, i));
    }
    return all;
  }
  [[nodiscard]] std::vector<const XmlElement*> children(const XmlElement& parent,
                                                        std::string_view tag) const {
    std::vector<const XmlElement*> found = children(parent);
    std::erase_if(found, [&](const XmlElement* child) { return document_.tag(*child) != tag; });
    return found;
  }
  [[nodiscard]] std::vector<std::string> places(const XmlElement& element) const {
    std::vector<std::string> values;
    for (std::size_t i = 0; i < element.attributeCount; ++i) {
      values.emplace_back(document_.attribute(element, i));
    }
    return values;
  }
  [[nodiscard]] std::string place(const XmlElement& element, std::size_t index) const {
    return index < element.attributeCount ? document_.attribute(element, index) : "";
  }
  [[nodiscard]] std::optional<std::int32_t> number(const XmlElement& element,
                                                   std::size_t index) const {
    return wholeNumber(fromUtf8(place(element, index)));
  }

  [[nodiscard]] std::size_t line(const XmlElement& element) const {
    return document_.place(element).line;
  }
  void problem(const XmlElement& element, std::string message) {
    report_.problems.push_back({line(element), std::move(message)});
  }
  void note(const XmlElement& element, std::string message) {
    report_.notes.push_back({line(element), std::move(message)});
  }

  void visitFamily(const XmlElement& family) {
    checkPlaces(family, CatalogueLevel::Family);
    checkTags(family, familyTags);
    const std::vector<const XmlElement*> devices = children(family, deviceTag);
    checkCount(family, devices.size(), "devices of one family");
    if (devices.empty()) {
      problem(family, "family without a Device; its modules are not found");
    }
    for (const XmlElement* device : devices) {
      visitDevice(family, *device);
    }
  }

  void visitDevice(const XmlElement& family, const XmlElement& device) {
    checkPlaces(device, CatalogueLevel::Device);
    checkTags(device, deviceTags);
    const std::vector<const XmlElement*> versions = children(device, versionTag);
    checkCount(device, versions.size(), "versions of one Device");
    checkRepetition(family, device);
    checkLinks(device);
    if (versions.empty()) {
      problem(device,
              "Device without a Version; its status is read from the registers of the previous "
              "module");
      addEntry(family, device, nullptr);
    }
    visitVersions(family, device, versions);
  }

  void visitVersions(const XmlElement& family, const XmlElement& device,
                     const std::vector<const XmlElement*>& versions) {
    const bool isText = number(family, 0) == hartVendor;
    FirstLines firmwares;
    std::optional<double> highest;
    for (const XmlElement* version : versions) {
      checkPlaces(*version, CatalogueLevel::Version);
      addEntry(family, device, version);
      const std::u16string text = fromUtf8(place(*version, 0));
      if (isText) {
        checkReach(*version, text, firmwares);
      } else if (const auto firmware = versionNumber(text)) {
        checkReach(*version, numberText(*firmware, u"."), firmwares);
        checkOrder(*version, *firmware, highest);
      } else {
        problem(*version,
                '"' + toUtf8(text) + "\" is not a firmware version; reads of this module fail");
      }
    }
  }

  [[nodiscard]] std::string firmwareOf(const XmlElement& version) const {
    return "firmware " + place(version, 0);
  }

  /// `firmware` is the same text for all versions that a lookup takes for equal.
  void checkReach(const XmlElement& version, const std::u16string& firmware,
                  FirstLines& firmwares) {
    const auto [earlier, isNew] = firmwares.try_emplace({firmware}, line(version));
    if (!isNew) {
      problem(version, firmwareOf(version) + " is never reached; line " +
                           std::to_string(earlier->second) + " lists it already");
    }
  }

  void checkOrder(const XmlElement& version, double firmware, std::optional<double>& highest) {
    if (firmware < 0 || firmware > maxFirmware) {
      problem(version, firmwareOf(version) + " is never reached; modules have 0 to " +
                           toUtf8(numberText(maxFirmware, u".")));
    }
    if (highest && firmware < *highest) {
      note(version, firmwareOf(version) + " follows a higher one");
    }
    highest = std::max(firmware, highest.value_or(firmware));
  }

  void addEntry(const XmlElement& family, const XmlElement& device, const XmlElement* version) {
    CatalogueEntry entry{line(version == nullptr ? device : *version),
                         places(family),
                         places(device),
                         version == nullptr ? std::vector<std::string>{} : places(*version),
                         {}};
    for (const LinkTag& link : linkTags) {
      const std::vector<const XmlElement*> given = children(device, link.tag);
      if (!given.empty() && *document_.text(*given.front()) != '\0') {
        entry.links.emplace_back(link.tag);
      }
    }
    report_.entries.push_back(std::move(entry));
  }

  void checkCount(const XmlElement& parent, std::size_t count, const char* what) {
    if (count > maxChildren) {
      problem(parent, std::to_string(count) + " " + what + "; the maximum is " +
                          std::to_string(maxChildren) + ", and reads that reach them fail");
    }
  }

  void checkTags(const XmlElement& parent, const std::set<std::string>& tags) {
    for (const XmlElement* child : children(parent)) {
      const std::string& tag = document_.tag(*child);
      if (tags.contains(tag)) {
        continue;
      }
      const auto meant = std::find_if(tags.begin(), tags.end(), [&](const std::string& known) {
        return equalIgnoringCase(tag, known);
      });
      if (meant == tags.end()) {
        note(*child, "ignored: " + tag);
      } else {
        problem(*child, tag + " is ignored; the tag is spelled " + *meant);
      }
    }
  }

  void checkPlaces(const XmlElement& element, CatalogueLevel level) {
    for (std::string& fault : faultsOfPlaces(level, places(element))) {
      problem(element, std::move(fault));
    }
  }

  void checkRepetition(const XmlElement& family, const XmlElement& device) {
    const auto word = [this](const XmlElement& element, std::size_t index) {
      const auto value = number(element, index);
      return value ? decimalText(*value) : std::u16string(u"?");
    };
    const auto [earlier, isNew] =
        devices_.try_emplace({word(family, 0), word(family, 1), word(device, 0)}, line(device));
    if (!isNew) {
      problem(device, "line " + std::to_string(earlier->second) +
                          " lists this Device already; links, HideFwVersion and verdict are taken "
                          "from this one");
    }
  }

  void checkLinks(const XmlElement& device) {
    for (const LinkTag& link : linkTags) {
      const std::vector<const XmlElement*> given = children(device, link.tag);
      const std::string_view text = given.empty() ? "" : document_.text(*given.front());
      if (!text.empty()) {
        checkBlanks(*given.front(), text);
      } else if (link.readers != nullptr) {
        problem(device,
                std::string("no ") + link.tag + "; " + link.readers + " users get an empty link");
      }
      if (given.size() > 1) {
        problem(*given[1], std::string(link.tag) + " is ignored; the one in line " +
                               std::to_string(line(*given.front())) + " is used");
      }
    }
  }

  void checkBlanks(const XmlElement& link, std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    if (blanks.find(text.front()) != std::string_view::npos ||
        blanks.find(text.back()) != std::string_view::npos) {
      problem(link, document_.tag(link) + " has white space around the link; the host receives it");
    }
  }

  const XmlDocument& document_;
  CatalogueReport& report_;
  /// By vendor, family and device word.
  FirstLines devices_;
};

}  // namespace

void walkCatalogue(const XmlDocument& document, CatalogueReport& report) {
  CatalogueCheck(document, report).run();
}

}  // namespace tessara
