#include "platform/xml/PugixmlTree.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/Text.h"

namespace tessara {
namespace {

/// Stands for children of every tag.
constexpr std::string_view anyTag;

pugi::xml_node nodeOf(XmlTree::Element element) {
  return pugi::xml_node(static_cast<pugi::xml_node_struct*>(element.node));
}

XmlTree::Element elementOf(pugi::xml_node node) {
  return {node.internal_object()};
}

/// `node` itself or the first of its siblings behind it that is an element of that tag.
pugi::xml_node elementFrom(pugi::xml_node node, std::string_view tag) {
  while (node && (node.type() != pugi::node_element || (!tag.empty() && tag != node.name()))) {
    node = node.next_sibling();
  }
  return node;
}

std::int32_t count(pugi::xml_node parent, std::string_view tag) {
  std::int32_t number = 0;
  for (auto node = elementFrom(parent.first_child(), tag); node;
       node = elementFrom(node.next_sibling(), tag)) {
    ++number;
  }
  return number;
}

std::size_t depthOf(pugi::xml_node node) {
  std::size_t depth = 0;
  for (node = node.parent(); node; node = node.parent()) {
    ++depth;
  }
  return depth;
}

/// One root element, and nothing beside it but comments and the like, which the parser drops.
bool hasOneRoot(const pugi::xml_document& document) {
  const pugi::xml_node first = document.first_child();
  return first.type() == pugi::node_element && !first.next_sibling();
}

}  // namespace

bool PugixmlTree::loadFile(const std::u16string& path) {
  reached_.clear();
  const std::string utf8 = toUtf8(path);
  const std::filesystem::path file(std::u8string(utf8.begin(), utf8.end()));
  std::error_code unknown;
  // As a fragment, since otherwise text outside the root would be passed over in silence.
  constexpr unsigned int options = pugi::parse_default | pugi::parse_fragment;
  if (std::filesystem::is_regular_file(file, unknown) &&
      document_.load_file(file.c_str(), options) && hasOneRoot(document_)) {
    return true;
  }
  document_.reset();
  return false;
}

XmlTree::Element PugixmlTree::root() const {
  return elementOf(document_.document_element());
}

std::int32_t PugixmlTree::childCount(Element element) const {
  return count(nodeOf(element), anyTag);
}

XmlTree::Element PugixmlTree::child(Element element, std::int32_t index) const {
  return seek(nodeOf(element), anyTag, index);
}

std::u16string PugixmlTree::attribute(Element element, std::int32_t index) const {
  auto attribute = nodeOf(element).first_attribute();
  for (std::int32_t place = 0; place < index && attribute; ++place) {
    attribute = attribute.next_attribute();
  }
  return fromUtf8(attribute.value());
}

std::int32_t PugixmlTree::countByTag(Element element, const char* tag) const {
  return count(nodeOf(element), tag);
}

XmlTree::Element PugixmlTree::nthByTag(Element element, const char* tag, std::int32_t index) const {
  return seek(nodeOf(element), tag, index);
}

std::u16string PugixmlTree::text(Element element) const {
  std::string content;
  for (const pugi::xml_node& piece : nodeOf(element)) {
    if (piece.type() == pugi::node_pcdata || piece.type() == pugi::node_cdata) {
      content += piece.value();
    }
  }
  return fromUtf8(content);
}

void PugixmlTree::close(Element /*element*/) {
  reached_.clear();
}

XmlTree::Element PugixmlTree::seek(pugi::xml_node parent, std::string_view tag,
                                   std::int32_t index) const {
  const std::size_t depth = depthOf(parent);
  reached_.resize(std::max(reached_.size(), depth + 1));
  Reached& last = reached_[depth];
  if (last.parent != parent || last.tag != tag || last.index > index) {
    last = {parent, std::string(tag), 0, elementFrom(parent.first_child(), tag)};
  }
  while (last.node && last.index < index) {
    last.node = elementFrom(last.node.next_sibling(), tag);
    ++last.index;
  }
  return elementOf(last.node);
}

}  // namespace tessara
