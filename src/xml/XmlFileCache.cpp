#include "xml/XmlFileCache.h"

#include <utility>

#include "base/Text.h"
#include "xml/XmlParser.h"

namespace tessara {

std::shared_ptr<const XmlDocument> XmlFileCache::load(const std::u16string& path) {
  const RegularFile file(toUtf8(path));
  const auto identity = file.identity();
  if (identity && identity == identity_) {
    return document_;
  }
  identity_.reset();
  document_.reset();
  const auto bytes = file.content(xmlLimit::bytes);
  if (!bytes) {
    return nullptr;
  }
  auto parsed = parseXml(*bytes);
  auto* document = std::get_if<XmlDocument>(&parsed);
  if (document == nullptr) {
    return nullptr;
  }
  auto loaded = std::make_shared<const XmlDocument>(std::move(*document));
  // A file that has changed meanwhile, or could change unnoticed, is parsed again the next time.
  if (file.identity() == identity && wouldShowChange(*identity)) {
    identity_ = identity;
    document_ = loaded;
  }
  return loaded;
}

}  // namespace tessara
