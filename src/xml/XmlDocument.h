#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tessara {

/// A place in a file as editors show it: line and character of the line, both from 1.
struct XmlPlace {
  std::size_t line = 0;
  std::size_t column = 0;
};

/// An element of a document, which returns its tag, attributes, children and text.
struct XmlElement {
  std::uint32_t tag = 0;
  /// 0 for the root.
  std::uint32_t depth = 0;
  std::uint32_t attributeCount = 0;
  std::uint32_t childCount = 0;
  std::size_t firstAttribute = 0;
  std::size_t firstChild = 0;
  std::size_t text = 0;
};

/// A well-formed XML document in memory, read-only. All texts are UTF-8.
class XmlDocument {
 public:
  [[nodiscard]] const XmlElement& root() const { return elements_.front(); }

  /// The child element at `index`, which must be below `childCount`.
  [[nodiscard]] const XmlElement& child(const XmlElement& element, std::size_t index) const {
    return elements_[children_[element.firstChild + index]];
  }

  [[nodiscard]] const std::string& tag(const XmlElement& element) const {
    return tags_[element.tag];
  }
  /// The number of this tag in `XmlElement::tag`; `noTag` if no element has it.
  [[nodiscard]] std::uint32_t tagNumber(std::string_view tag) const;
  static constexpr std::uint32_t noTag = UINT32_MAX;

  /// The value of the attribute at `index`, which must be below `attributeCount`.
  [[nodiscard]] const char* attribute(const XmlElement& element, std::size_t index) const {
    return strings_.data() + attributes_[element.firstAttribute + index];
  }

  /// The text between the element's tags without that of its children. White space that stands
  /// alone between two pieces of markup is omitted.
  [[nodiscard]] const char* text(const XmlElement& element) const {
    return strings_.data() + element.text;
  }

  /// Where the start tag begins; only in documents that were parsed with their places.
  [[nodiscard]] XmlPlace place(const XmlElement& element) const {
    return places_[static_cast<std::size_t>(&element - elements_.data())];
  }

 private:
  friend class XmlDocumentBuilder;

  struct TagHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view tag) const {
      return std::hash<std::string_view>{}(tag);
    }
  };

  /// In document order.
  std::vector<XmlElement> elements_;
  std::vector<XmlPlace> places_;
  /// The children of all elements as indexes into `elements_`; those of one element are adjacent.
  std::vector<std::uint32_t> children_;
  /// Where the values start in `strings_`; those of one element are adjacent.
  std::vector<std::size_t> attributes_;
  /// Values and texts, each ended by a zero; the empty text comes first.
  std::string strings_{std::string(1, '\0')};
  std::vector<std::string> tags_;
  std::unordered_map<std::string, std::uint32_t, TagHash, std::equal_to<>> tagNumbers_;
};

}  // namespace tessara
