#pragma once

#include <memory>
#include <optional>
#include <string>

#include "xml/RegularFile.h"
#include "xml/XmlDocument.h"

namespace tessara {

/// Keeps the document of the last XML file and returns it again as long as the file is the same
/// (device, inode, size and modification time). Nothing is kept of a file that does not load.
class XmlFileCache {
 public:
  /// The file's document; null if the file is missing, unreadable or not well-formed.
  std::shared_ptr<const XmlDocument> load(const std::u16string& path);

 private:
  std::optional<FileIdentity> identity_;
  std::shared_ptr<const XmlDocument> document_;
};

}  // namespace tessara
