#include "FakeCatalogue.h"

namespace tessara::testing {
namespace {

const FakeCatalogue::Node& nodeOf(XmlTree::Element element) {
  return *static_cast<const FakeCatalogue::Node*>(element.node);
}

XmlTree::Element elementOf(const FakeCatalogue::Node& node) {
  return {const_cast<FakeCatalogue::Node*>(&node)};
}

}  // namespace

FakeCatalogue::Node FakeCatalogue::oneModule() {
  const Node version{
      "Version", {u"1.234", u"", u"", u"60", u"61", u"62", u"63", u"64", u"0", u"1", u"7"}, {}, {}};
  const Node device{
      "Device",
      {u"161", u"0"},
      {{"ProductLink", {}, {}, u"product"}, {"DatasheetDE", {}, {}, u"sheet"}, version},
      {}};
  return {"Catalogue", {}, {{"Family", {u"49", u"16"}, {device}, {}}}, {}};
}

std::unique_ptr<FakeCatalogue> FakeCatalogue::broken() {
  auto tree = std::make_unique<FakeCatalogue>();
  tree->loads_ = false;
  return tree;
}

bool FakeCatalogue::loadFile(const std::u16string& /*path*/) {
  return loads_;
}

XmlTree::Element FakeCatalogue::root() const {
  return elementOf(root_);
}

std::int32_t FakeCatalogue::childCount(Element element) const {
  return static_cast<std::int32_t>(nodeOf(element).children.size());
}

XmlTree::Element FakeCatalogue::child(Element element, std::int32_t index) const {
  return elementOf(nodeOf(element).children.at(static_cast<std::size_t>(index)));
}

std::u16string FakeCatalogue::attribute(Element element, std::int32_t index) const {
  const auto& attributes = nodeOf(element).attributes;
  const auto place = static_cast<std::size_t>(index);
  return place < attributes.size() ? attributes[place] : std::u16string{};
}

std::int32_t FakeCatalogue::countByTag(Element element, const char* tag) const {
  std::int32_t count = 0;
  for (const auto& node : nodeOf(element).children) {
    count += node.tag == tag ? 1 : 0;
  }
  return count;
}

XmlTree::Element FakeCatalogue::nthByTag(Element element, const char* tag,
                                         std::int32_t index) const {
  for (const auto& node : nodeOf(element).children) {
    if (node.tag == tag && index-- == 0) {
      return elementOf(node);
    }
  }
  return {};
}

std::u16string FakeCatalogue::text(Element element) const {
  return element.node == nullptr ? std::u16string{} : nodeOf(element).content;
}

void FakeCatalogue::close(Element /*element*/) {}

}  // namespace tessara::testing
