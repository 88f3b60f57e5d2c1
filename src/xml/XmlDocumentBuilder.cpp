#include "xml/XmlDocumentBuilder.h"

namespace tessara {

void XmlDocumentBuilder::open(std::string_view tag, const char* const* attributes) {
  endRun();
  const std::size_t number = document_.elements_.size();
  if (depth_ > 0) {
    levels_[depth_ - 1].children.push_back(static_cast<std::uint32_t>(number));
  }
  XmlElement element;
  element.tag = numberOf(tag);
  element.depth = static_cast<std::uint32_t>(depth_);
  element.firstAttribute = document_.attributes_.size();
  for (; *attributes != nullptr; attributes += 2) {
    document_.attributes_.push_back(keep(attributes[1]));
    ++element.attributeCount;
  }
  document_.elements_.push_back(element);
  levels_[depth_++].element = number;
}

void XmlDocumentBuilder::close() {
  endRun();
  Level& level = levels_[--depth_];
  XmlElement& element = document_.elements_[level.element];
  element.firstChild = document_.children_.size();
  element.childCount = static_cast<std::uint32_t>(level.children.size());
  document_.children_.insert(document_.children_.end(), level.children.begin(),
                             level.children.end());
  element.text = keep(level.text);
  level.children.clear();
  level.text.clear();
}

void XmlDocumentBuilder::endData() {
  // White space in a CDATA section is intended.
  levels_[depth_ - 1].text += run_;
  run_.clear();
}

void XmlDocumentBuilder::endRun() {
  constexpr auto blanks = " \t\r\n";
  if (run_.find_first_not_of(blanks) != std::string::npos) {
    levels_[depth_ - 1].text += run_;
  }
  run_.clear();
}

std::uint32_t XmlDocumentBuilder::numberOf(std::string_view tag) {
  const auto known = document_.tagNumber(tag);
  if (known != XmlDocument::noTag) {
    return known;
  }
  const auto number = static_cast<std::uint32_t>(document_.tags_.size());
  document_.tags_.emplace_back(tag);
  document_.tagNumbers_.emplace(tag, number);
  return number;
}

std::size_t XmlDocumentBuilder::keep(std::string_view text) {
  if (text.empty()) {
    return 0;
  }
  const std::size_t start = document_.strings_.size();
  document_.strings_.append(text).push_back('\0');
  return start;
}

}  // namespace tessara
