#include "xml/XmlDocument.h"

namespace tessara {

std::uint32_t XmlDocument::tagNumber(std::string_view tag) const {
  const auto found = tagNumbers_.find(tag);
  return found == tagNumbers_.end() ? noTag : found->second;
}

}  // namespace tessara
