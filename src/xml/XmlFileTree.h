#pragma once

#include <array>
#include <memory>
#include <string>

#include "platform/XmlTree.h"
#include "xml/XmlDocument.h"
#include "xml/XmlFileCache.h"
#include "xml/XmlParser.h"

namespace tessara {

/// The tree of a file that a cache loads. Visiting the children of an element in order takes the
/// same time for each of them, however many there are.
class XmlFileTree final : public XmlTree {
 public:
  /// `cache` must outlive the tree.
  explicit XmlFileTree(XmlFileCache& cache) : cache_(cache) {}

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
  /// The child by tag that was reached last on one level of the document.
  struct Reached {
    const XmlElement* parent = nullptr;
    std::uint32_t tag = 0;
    std::int32_t index = 0;
    /// Its index among all children.
    std::size_t place = 0;
  };

  XmlFileCache& cache_;
  std::shared_ptr<const XmlDocument> document_;
  mutable std::array<Reached, xmlLimit::depth> reached_{};
};

}  // namespace tessara
