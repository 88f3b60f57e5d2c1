#include "pictures/SvgOutline.h"

#include <algorithm>
#include <map>
#include <memory>
#include <type_traits>
#include <vector>

// Expat declares its limits of entities only where these are defined.
#define XML_DTD 1
#define XML_GE 1
#include <expat.h>

namespace tessara {
namespace {

/// Separates a namespace from a name.
constexpr XML_Char separator = '|';

std::string_view localName(std::string_view name) {
  return name.substr(name.rfind(separator) + 1);
}

/// The elements of a file with what is needed to count how often each is drawn.
class Outline {
 public:
  void open(std::string_view name, const XML_Char** attributes) {
    const std::size_t self = elements_.size();
    if (self == 0) hasSvgRoot_ = localName(name) == "svg";
    if (!open_.empty()) elements_[open_.back()].children.push_back(self);
    elements_.emplace_back();
    open_.push_back(self);
    isTooDeep_ = isTooDeep_ || open_.size() > SvgLimits::maxDepth;
    for (; *attributes != nullptr; attributes += 2) {
      const std::string_view attribute = localName(attributes[0]);
      const std::string_view value = attributes[1];
      if (attribute == "id") ids_.try_emplace(std::string(value), self);
      if (attribute == "href" && localName(name) == "use" && value.starts_with('#')) {
        elements_[self].used = value.substr(1);
      }
    }
  }
  void close() { open_.pop_back(); }

  [[nodiscard]] bool hasSvgRoot() const { return hasSvgRoot_; }
  [[nodiscard]] bool isTooDeep() const { return isTooDeep_; }
  [[nodiscard]] bool hasTooManyElements() const { return elements_.size() > SvgLimits::maxDrawn; }
  [[nodiscard]] bool drawsTooMuch() { return drawn(0, 0) > SvgLimits::maxDrawn; }

 private:
  struct Element {
    std::vector<std::size_t> children;
    /// The id of the element that a `use` repeats.
    std::string used;
    /// Elements drawn for this one, itself included; 0 before they are counted.
    std::size_t drawn = 0;
  };

  static constexpr std::size_t tooMany = SvgLimits::maxDrawn + 1;

  std::size_t drawn(std::size_t index, std::size_t depth) {
    Element& element = elements_[index];
    if (element.drawn != 0) return element.drawn;
    // Elements that use each other in a chain are drawn like elements inside of each other.
    if (depth > SvgLimits::maxDepth) return tooMany;
    // An element that is reached again before it is counted contains itself.
    element.drawn = tooMany;
    std::size_t count = 1;
    for (const std::size_t child : element.children) {
      count = std::min(count + drawn(child, depth + 1), tooMany);
    }
    const auto used = element.used.empty() ? ids_.end() : ids_.find(element.used);
    if (used != ids_.end()) count = std::min(count + drawn(used->second, depth + 1), tooMany);
    element.drawn = count;
    return count;
  }

  std::vector<Element> elements_;
  std::vector<std::size_t> open_;
  std::map<std::string, std::size_t> ids_;
  bool hasSvgRoot_ = false;
  bool isTooDeep_ = false;
};

struct ParserFree {
  void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};
using Parser = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserFree>;

/// What the parser's handlers are given.
struct Reading {
  XML_Parser parser;
  Outline outline;
};

void elementOpens(void* data, const XML_Char* name, const XML_Char** attributes) {
  auto& reading = *static_cast<Reading*>(data);
  reading.outline.open(name, attributes);
  if (reading.outline.isTooDeep() || reading.outline.hasTooManyElements()) {
    XML_StopParser(reading.parser, XML_FALSE);
  }
}

void elementCloses(void* data, const XML_Char* /*name*/) {
  static_cast<Reading*>(data)->outline.close();
}

std::string parseFault(XML_Parser parser) {
  const XML_Error error = XML_GetErrorCode(parser);
  if (error == XML_ERROR_AMPLIFICATION_LIMIT_BREACH) {
    return "its entities stand for more than " + std::to_string(SvgLimits::maxEntityBytes) +
           " bytes";
  }
  return "line " + std::to_string(XML_GetCurrentLineNumber(parser)) + ", column " +
         std::to_string(XML_GetCurrentColumnNumber(parser) + 1) + ": " + XML_ErrorString(error);
}

}  // namespace

std::optional<std::string> faultOfSvg(std::string_view bytes) {
  const Parser parser(XML_ParserCreateNS(nullptr, separator));
  Reading reading{parser.get(), {}};
  XML_SetUserData(parser.get(), &reading);
  XML_SetElementHandler(parser.get(), elementOpens, elementCloses);
  // Beyond the threshold entities must not add anything.
  XML_SetBillionLaughsAttackProtectionActivationThreshold(parser.get(),
                                                          bytes.size() + SvgLimits::maxEntityBytes);
  XML_SetBillionLaughsAttackProtectionMaximumAmplification(parser.get(), 1.0F);
  const bool isParsed = XML_Parse(parser.get(), bytes.data(), static_cast<int>(bytes.size()),
                                  XML_TRUE) == XML_STATUS_OK;

  Outline& outline = reading.outline;
  if (outline.isTooDeep()) {
    return "it nests elements deeper than " + std::to_string(SvgLimits::maxDepth);
  }
  if (outline.hasTooManyElements() || (isParsed && outline.drawsTooMuch())) {
    return "it draws more than " + std::to_string(SvgLimits::maxDrawn) + " elements";
  }
  if (!isParsed) return parseFault(parser.get());
  return outline.hasSvgRoot() ? std::nullopt : std::optional<std::string>("its root is not svg");
}

}  // namespace tessara
