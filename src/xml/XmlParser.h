#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

#include "xml/XmlDocument.h"

namespace tessara {

/// Limits beyond which a document is refused. No catalogue comes near them; they keep a damaged or
/// hostile file from taking the memory or the stack.
namespace xmlLimit {
constexpr std::size_t bytes = 256 * 1024 * 1024;
/// Elements within elements, the root included.
constexpr std::size_t depth = 64;
/// Entities that a document declares; they may refer to each other.
constexpr std::size_t entities = 256;
}  // namespace xmlLimit

/// Why a text is not a document that can be used.
struct XmlFault {
  /// Line 0 if the document as a whole is at fault.
  XmlPlace place;
  std::string cause;
};

/// Whether elements remember where they stand, which takes time.
enum class XmlPlaces { Dropped, Kept };

/// Parses a whole XML 1.0 document: UTF-8, UTF-16, or US-ASCII or ISO 8859-1 if it says so. A
/// document that is not well-formed or breaks a limit is refused. Entities that the document itself
/// declares are replaced, as long as they do not make it disproportionately larger; nothing outside
/// of it is read, and references to external entities are passed over.
std::variant<XmlDocument, XmlFault> parseXml(std::string_view bytes,
                                             XmlPlaces places = XmlPlaces::Dropped);

}  // namespace tessara
