#pragma once

#include <memory>
#include <optional>
#include <string>

#include "xml/RegularFile.h"
#include "xml/XmlDocument.h"

namespace tessara {

/// Keeps the document of the XML file that was read last, and returns it again as long as the file
/// is the same: device, inode, size and time of modification. A file that does not load is not
/// kept.
class XmlFileCache {
 public:
  /// The file's document; null if the file is missing, unreadable or not well-formed.
  std::shared_ptr<const XmlDocument> load(const std::u16string& path);

 private:
  std::optional<FileIdentity> identity_;
  std::shared_ptr<const XmlDocument> document_;
};

}  // namespace tessara
