#include "xml/PugixmlTree.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "base/Text.h"

namespace tessara {
namespace {

pugi::xml_node nodeOf(XmlTree::Element element) {
  return pugi::xml_node(static_cast<pugi::xml_node_struct*>(element.node));
}

XmlTree::Element elementOf(pugi::xml_node node) {
  return {node.internal_object()};
}

/// Null stands for every tag.
using Tag = const char*;

/// The parser keeps nothing that has a name but elements, and no element without one.
pugi::xml_node orNextElement(pugi::xml_node node) {
  while (node && node.type() != pugi::node_element) {
    node = node.next_sibling();
  }
  return node;
}

pugi::xml_node firstChild(pugi::xml_node parent, Tag tag) {
  return tag == nullptr ? orNextElement(parent.first_child()) : parent.child(tag);
}

pugi::xml_node nextSibling(pugi::xml_node node, Tag tag) {
  return tag == nullptr ? orNextElement(node.next_sibling()) : node.next_sibling(tag);
}

std::int32_t count(pugi::xml_node parent, Tag tag) {
  std::int32_t number = 0;
  for (auto node = firstChild(parent, tag); node; node = nextSibling(node, tag)) {
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
  // As a fragment, since otherwise text outside the root would be passed over in silence; with the
  // first piece of an element's text in the element itself, which saves a large file many nodes.
  constexpr unsigned int options =
      pugi::parse_default | pugi::parse_fragment | pugi::parse_embed_pcdata;
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
  return count(nodeOf(element), nullptr);
}

XmlTree::Element PugixmlTree::child(Element element, std::int32_t index) const {
  return seek(nodeOf(element), nullptr, index);
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
  const pugi::xml_node node = nodeOf(element);
  std::string content = node.value();
  for (const pugi::xml_node& piece : node) {
    if (piece.type() == pugi::node_pcdata || piece.type() == pugi::node_cdata) {
      content += piece.value();
    }
  }
  return fromUtf8(content);
}

void PugixmlTree::close(Element /*element*/) {
  reached_.clear();
}

XmlTree::Element PugixmlTree::seek(pugi::xml_node parent, const char* tag,
                                   std::int32_t index) const {
  const std::size_t depth = depthOf(parent);
  reached_.resize(std::max(reached_.size(), depth + 1));
  Reached& last = reached_[depth];
  const std::string_view name = tag == nullptr ? std::string_view() : tag;
  if (last.parent != parent || last.tag != name || last.index > index) {
    last = {parent, std::string(name), 0, firstChild(parent, tag)};
  }
  while (last.node && last.index < index) {
    last.node = nextSibling(last.node, tag);
    ++last.index;
  }
  return elementOf(last.node);
}

}  // namespace tessara
