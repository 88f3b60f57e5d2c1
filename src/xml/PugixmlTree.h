#pragma once

#include <string>
#include <vector>

#include <pugixml.hpp>

#include "platform/XmlTree.h"

namespace tessara {

/// XML documents in UTF-8, UTF-16, UTF-32 or ISO 8859-1, told apart by their first bytes and their
/// declaration. Visiting the children of an element one after the other by their index costs the
/// same for each of them, however many there are.
///
/// Doubled names among the attributes of an element are let pass: attributes are known by their
/// places here, and comparing all names would take as long as reading the file.
class PugixmlTree : public XmlTree {
 public:
  bool loadFile(const std::u16string& path) override;
  [[nodiscard]] Element root() const override;
  [[nodiscard]] std::int32_t childCount(Element element) const override;
  [[nodiscard]] Element child(Element element, std::int32_t index) const override;
  [[nodiscard]] std::u16string attribute(Element element, std::int32_t index) const override;
  [[nodiscard]] std::int32_t countByTag(Element element, const char* tag) const override;
  [[nodiscard]] Element nthByTag(Element element, const char* tag,
                                 std::int32_t index) const override;
  [[nodiscard]] std::u16string text(Element element) const override;
  void close(Element element) override;

 private:
  /// The place reached last on one level of the document.
  struct Reached {
    pugi::xml_node parent;
    /// Empty for children of every tag.
    std::string tag;
    std::int32_t index = 0;
    pugi::xml_node node;
  };

  /// The child of that tag at `index`; a null tag stands for every tag.
  [[nodiscard]] Element seek(pugi::xml_node parent, const char* tag, std::int32_t index) const;

  pugi::xml_document document_;
  mutable std::vector<Reached> reached_;
};

}  // namespace tessara
