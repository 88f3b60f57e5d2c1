#include "catalogue/CataloguePlaces.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>

#include "base/Text.h"
#include "catalogue/Notation.h"

namespace tessara {
namespace {

enum class Content { Text, Word, Number, Register };

struct Level {
  const char* name;
  /// What happens if a place is missing or does not hold a number.
  const char* harm;
  std::vector<Content> places;
};

const Level& levelOf(CatalogueLevel level) {
  using enum Content;
  static const Level family{"family", "reads of all modules fail", {Word, Word}};
  static const Level device{"Device", "reads of all modules of this family fail", {Word, Number}};
  static const Level version{
      "Version",
      "reads of this module fail",
      {Text, Text, Text, Register, Register, Register, Register, Register, Number, Number, Number}};
  switch (level) {
    case CatalogueLevel::Family:
      return family;
    case CatalogueLevel::Device:
      return device;
    case CatalogueLevel::Version:
      return version;
  }
  return version;
}

/// The lowest and the highest number of a content, and how a sentence about others ends.
struct Bounds {
  std::int32_t lowest;
  std::int32_t highest;
  const char* rule;
};

std::optional<Bounds> boundsOf(Content content) {
  using Word = std::numeric_limits<std::int16_t>;
  switch (content) {
    case Content::Word:
      return Bounds{Word::min(), Word::max(),
                    "is outside -32768 to 32767, the range of identification words"};
    case Content::Register:
      return Bounds{0, std::numeric_limits<std::uint16_t>::max(),
                    "is outside 0 to 65535, the range of registers"};
    default:
      return std::nullopt;
  }
}

/// The end of the sentence, or nothing if all is well.
std::string faultOf(const std::string& value, Content content, const Level& level) {
  if (content == Content::Text) {
    return {};
  }
  const std::optional<std::int32_t> number = wholeNumber(fromUtf8(value));
  if (!number) {
    return std::string("is not a whole number; ") + level.harm;
  }
  const std::optional<Bounds> bounds = boundsOf(content);
  return bounds && (*number < bounds->lowest || *number > bounds->highest) ? bounds->rule
                                                                           : std::string{};
}

}  // namespace

std::vector<std::string> faultsOfPlaces(CatalogueLevel level,
                                        const std::vector<std::string>& places) {
  const Level& rules = levelOf(level);
  std::vector<std::string> faults;
  if (places.size() < rules.places.size()) {
    faults.push_back("this " + std::string(rules.name) + " has " + std::to_string(places.size()) +
                     " of " + std::to_string(rules.places.size()) + " places; " + rules.harm);
  }
  const std::size_t filled = std::min(places.size(), rules.places.size());
  for (std::size_t place = 0; place < filled; ++place) {
    const std::string fault = faultOf(places[place], rules.places[place], rules);
    if (!fault.empty()) {
      faults.push_back("place " + std::to_string(place) + " of this " + rules.name + ", \"" +
                       places[place] + "\", " + fault);
    }
  }
  return faults;
}

}  // namespace tessara
