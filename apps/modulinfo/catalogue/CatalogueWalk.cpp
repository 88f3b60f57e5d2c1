#include "catalogue/CatalogueWalk.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
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
constexpr std::ptrdiff_t mostChildren = 32768;
/// A firmware register holds four digits of up to 15 each, the first before the point.
constexpr double highestFirmware = 16.665;

/// A link of a `Device`. Data sheets have readers who look for no other tag.
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

std::vector<std::string> placesOf(pugi::xml_node node) {
  std::vector<std::string> places;
  for (const pugi::xml_attribute& attribute : node.attributes()) {
    places.emplace_back(attribute.value());
  }
  return places;
}

bool isElement(pugi::xml_node node) {
  return node.type() == pugi::node_element;
}

/// The lines in which something was met first, by what it was.
using FirstLines = std::map<std::vector<std::u16string>, std::size_t>;

class CatalogueWalk {
 public:
  CatalogueWalk(const XmlSource& source, CatalogueReport& report)
      : source_(source), report_(report) {}

  void run(pugi::xml_node root) {
    countChildren(root, nullptr, "families");
    for (const pugi::xml_node& family : root) {
      if (isElement(family)) {
        visitFamily(family);
      }
    }
  }

 private:
  [[nodiscard]] std::size_t lineOf(pugi::xml_node node) const {
    return source_.lineAt(static_cast<std::size_t>(node.offset_debug()));
  }
  void problem(pugi::xml_node node, std::string message) {
    report_.problems.push_back({lineOf(node), std::move(message)});
  }
  void note(pugi::xml_node node, std::string message) {
    report_.notes.push_back({lineOf(node), std::move(message)});
  }

  void visitFamily(pugi::xml_node family) {
    checkPlaces(family, CatalogueLevel::Family);
    checkTags(family, familyTags);
    countChildren(family, deviceTag, "devices of one family");
    if (!family.child(deviceTag)) {
      problem(family, "the family holds no Device; its modules are not found");
    }
    for (const pugi::xml_node& device : family.children(deviceTag)) {
      visitDevice(family, device);
    }
  }

  void visitDevice(pugi::xml_node family, pugi::xml_node device) {
    checkPlaces(device, CatalogueLevel::Device);
    checkTags(device, deviceTags);
    countChildren(device, versionTag, "versions of one Device");
    checkRepetition(family, device);
    checkLinks(device);
    if (!device.child(versionTag)) {
      problem(device,
              "the Device has no Version; its status is read from the registers of the module "
              "before");
      addEntry(family, device, {});
    }
    visitVersions(family, device);
  }

  void visitVersions(pugi::xml_node family, pugi::xml_node device) {
    const bool isText = numberAt(family, 0) == hartVendor;
    FirstLines firmwares;
    std::optional<double> highest;
    for (const pugi::xml_node& version : device.children(versionTag)) {
      checkPlaces(version, CatalogueLevel::Version);
      addEntry(family, device, version);
      const std::u16string text = fromUtf8(version.first_attribute().value());
      if (isText) {
        checkReach(version, text, firmwares);
      } else if (const auto number = versionNumber(text)) {
        checkReach(version, numberText(*number, u"."), firmwares);
        checkNumber(version, *number, highest);
      } else {
        problem(version,
                '"' + toUtf8(text) + "\" is no firmware version; reads of this module fail");
      }
    }
  }

  /// What the file calls the firmware of a version.
  static std::string firmwareOf(pugi::xml_node version) {
    return std::string("firmware ") + version.first_attribute().value();
  }

  /// `firmware` is the same text for all versions that a lookup takes for equal.
  void checkReach(pugi::xml_node version, const std::u16string& firmware, FirstLines& firmwares) {
    const auto [earlier, isNew] = firmwares.try_emplace({firmware}, lineOf(version));
    if (!isNew) {
      problem(version, firmwareOf(version) + " is never reached; line " +
                           std::to_string(earlier->second) + " has it already");
    }
  }

  void checkNumber(pugi::xml_node version, double number, std::optional<double>& highest) {
    if (number < 0 || number > highestFirmware) {
      problem(version, firmwareOf(version) + " is never reached; modules have 0 to " +
                           toUtf8(numberText(highestFirmware, u".")));
    }
    if (highest && number < *highest) {
      note(version, firmwareOf(version) + " stands behind a higher one");
    }
    highest = std::max(number, highest.value_or(number));
  }

  void addEntry(pugi::xml_node family, pugi::xml_node device, pugi::xml_node version) {
    CatalogueEntry entry{lineOf(version ? version : device),
                         placesOf(family),
                         placesOf(device),
                         placesOf(version),
                         {}};
    for (const LinkTag& link : linkTags) {
      if (isGiven(device.child(link.tag))) {
        entry.links.emplace_back(link.tag);
      }
    }
    report_.entries.push_back(std::move(entry));
  }

  void countChildren(pugi::xml_node parent, const char* tag, const char* what) {
    const auto number =
        std::count_if(parent.begin(), parent.end(), [&](const pugi::xml_node& child) {
          return isElement(child) && (tag == nullptr || std::string_view(child.name()) == tag);
        });
    if (number > mostChildren) {
      problem(parent, std::to_string(number) + " " + what + "; reads that come across more than " +
                          std::to_string(mostChildren) + " fail");
    }
  }

  void checkTags(pugi::xml_node parent, const std::set<std::string>& tags) {
    for (const pugi::xml_node& child : parent) {
      const std::string tag = child.name();
      if (!isElement(child) || tags.contains(tag)) {
        continue;
      }
      const auto meant = std::find_if(tags.begin(), tags.end(), [&](const std::string& known) {
        return known.size() == tag.size() && containsIgnoringCase(fromUtf8(tag), fromUtf8(known));
      });
      if (meant == tags.end()) {
        note(child, "passed over: " + tag);
      } else {
        problem(child, tag + " is passed over; the tag is spelled " + *meant);
      }
    }
  }

  void checkPlaces(pugi::xml_node node, CatalogueLevel level) {
    for (std::string& fault : faultsOfPlaces(level, placesOf(node))) {
      problem(node, std::move(fault));
    }
    // The control goes by places and lets doubled names pass.
    std::set<std::string> names;
    for (const pugi::xml_attribute& attribute : node.attributes()) {
      if (!names.insert(attribute.name()).second) {
        problem(node, std::string("the attribute ") + attribute.name() +
                          " is there twice; other programs refuse such a file");
      }
    }
  }

  void checkRepetition(pugi::xml_node family, pugi::xml_node device) {
    const auto word = [](pugi::xml_node node, std::size_t place) {
      const auto number = numberAt(node, place);
      return number ? decimalText(*number) : std::u16string(u"?");
    };
    const auto [earlier, isNew] =
        devices_.try_emplace({word(family, 0), word(family, 1), word(device, 0)}, lineOf(device));
    if (!isNew) {
      problem(device, "line " + std::to_string(earlier->second) +
                          " lists this Device already; the links, HideFwVersion and verdict of "
                          "this one count");
    }
  }

  static std::optional<std::int32_t> numberAt(pugi::xml_node node, std::size_t place) {
    const std::vector<std::string> places = placesOf(node);
    return place < places.size() ? wholeNumber(fromUtf8(places[place])) : std::nullopt;
  }

  static bool isGiven(pugi::xml_node link) { return *link.text().get() != '\0'; }

  void checkLinks(pugi::xml_node device) {
    for (const LinkTag& link : linkTags) {
      const pugi::xml_node first = device.child(link.tag);
      if (isGiven(first)) {
        checkBlanks(first);
      } else if (link.readers != nullptr) {
        problem(device,
                std::string("no ") + link.tag + "; " + link.readers + " users get an empty link");
      }
      if (const pugi::xml_node second = first.next_sibling(link.tag)) {
        problem(second, std::string(link.tag) + " is never reached; that of line " +
                            std::to_string(lineOf(first)) + " is taken");
      }
    }
  }

  void checkBlanks(pugi::xml_node link) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::string_view text = link.text().get();
    if (blanks.find(text.front()) != std::string_view::npos ||
        blanks.find(text.back()) != std::string_view::npos) {
      problem(link, std::string(link.name()) + " has blanks around the link; the host gets them");
    }
  }

  const XmlSource& source_;
  CatalogueReport& report_;
  /// By vendor, family and device word.
  FirstLines devices_;
};

}  // namespace

void walkCatalogue(pugi::xml_node root, const XmlSource& source, CatalogueReport& report) {
  CatalogueWalk(source, report).run(root);
}

}  // namespace tessara
