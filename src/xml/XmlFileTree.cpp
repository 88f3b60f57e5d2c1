#include "xml/XmlFileTree.h"

#include <utility>

#include "base/Text.h"

namespace tessara {
namespace {

const XmlElement* elementOf(XmlTree::Element handle) {
  return static_cast<const XmlElement*>(handle.node);
}

XmlTree::Element handleOf(const XmlElement& element) {
  return {const_cast<XmlElement*>(&element)};
}

bool isBelow(std::int32_t index, std::uint32_t count) {
  return index >= 0 && std::cmp_less(index, count);
}

/// The place among all children, from `place` on, of the first child with that tag number; the
/// number of children if there is none.
std::size_t findTag(const XmlDocument& document, const XmlElement& parent, std::uint32_t tag,
                    std::size_t place) {
  while (place < parent.childCount && document.child(parent, place).tag != tag) {
    ++place;
  }
  return place;
}

}  // namespace

bool XmlFileTree::loadFile(const std::u16string& path) {
  reached_.fill({});
  document_ = cache_.load(path);
  return document_ != nullptr;
}

XmlTree::Element XmlFileTree::root() const {
  return document_ == nullptr ? Element{} : handleOf(document_->root());
}

std::int32_t XmlFileTree::childCount(Element element) const {
  const XmlElement* parent = elementOf(element);
  return parent == nullptr ? 0 : static_cast<std::int32_t>(parent->childCount);
}

XmlTree::Element XmlFileTree::child(Element element, std::int32_t index) const {
  const XmlElement* parent = elementOf(element);
  return parent != nullptr && isBelow(index, parent->childCount)
             ? handleOf(document_->child(*parent, static_cast<std::size_t>(index)))
             : Element{};
}

std::u16string XmlFileTree::attribute(Element element, std::int32_t index) const {
  const XmlElement* owner = elementOf(element);
  return owner != nullptr && isBelow(index, owner->attributeCount)
             ? fromUtf8(document_->attribute(*owner, static_cast<std::size_t>(index)))
             : std::u16string{};
}

std::int32_t XmlFileTree::countByTag(Element element, const char* tag) const {
  const XmlElement* parent = elementOf(element);
  if (parent == nullptr) {
    return 0;
  }
  const std::uint32_t number = document_->tagNumber(tag);
  std::int32_t count = 0;
  for (std::size_t place = 0; place < parent->childCount; ++place) {
    count += document_->child(*parent, place).tag == number ? 1 : 0;
  }
  return count;
}

XmlTree::Element XmlFileTree::nthByTag(Element element, const char* tag, std::int32_t index) const {
  const XmlElement* parent = elementOf(element);
  if (parent == nullptr) {
    return {};
  }
  const std::uint32_t number = document_->tagNumber(tag);
  Reached& last = reached_[parent->depth];
  if (last.parent != parent || last.tag != number || last.index > index) {
    last = {parent, number, 0, findTag(*document_, *parent, number, 0)};
  }
  while (last.index < index && last.place < parent->childCount) {
    last.place = findTag(*document_, *parent, number, last.place + 1);
    ++last.index;
  }
  return last.place < parent->childCount ? handleOf(document_->child(*parent, last.place))
                                         : Element{};
}

std::u16string XmlFileTree::text(Element element) const {
  const XmlElement* owner = elementOf(element);
  return owner == nullptr ? std::u16string{} : fromUtf8(document_->text(*owner));
}

void XmlFileTree::close(Element /*element*/) {
  reached_.fill({});
}

}  // namespace tessara
