#pragma once

#include <cstdint>
#include <string>

namespace tessara {

/// A read-only XML document whose elements and attributes are addressed by place. Only elements
/// count as children; comments and white space between them are ignored.
class XmlTree {
 public:
  /// A handle to an element of the loaded document; valid until the next load.
  struct Element {
    void* node = nullptr;
  };

  XmlTree() = default;
  XmlTree(const XmlTree&) = delete;
  XmlTree& operator=(const XmlTree&) = delete;
  virtual ~XmlTree() = default;

  /// Loads the file; false if it is missing, unreadable or not well-formed.
  virtual bool loadFile(const std::u16string& path) = 0;
  [[nodiscard]] virtual Element root() const = 0;

  [[nodiscard]] virtual std::int32_t childCount(Element element) const = 0;
  /// The child at `index` from 0; an empty handle past the end.
  [[nodiscard]] virtual Element child(Element element, std::int32_t index) const = 0;
  /// The value of the attribute at `index` from 0; empty text past the end.
  [[nodiscard]] virtual std::u16string attribute(Element element, std::int32_t index) const = 0;
  [[nodiscard]] virtual std::int32_t countByTag(Element element, const char* tag) const = 0;
  /// The child at `index` from 0 among those with that tag; an empty handle past the end.
  [[nodiscard]] virtual Element nthByTag(Element element, const char* tag,
                                         std::int32_t index) const = 0;
  /// The element's own text, without that of its children and without white space that stands alone
  /// between two pieces of markup.
  [[nodiscard]] virtual std::u16string text(Element element) const = 0;
  /// Ends a walk, with the element visited last; an empty handle is allowed.
  virtual void close(Element element) = 0;
};

}  // namespace tessara
