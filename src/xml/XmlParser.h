#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

#include "xml/XmlDocument.h"

namespace tessara {

/// Limits above which a document is refused. They are far above those of any catalogue and keep a
/// damaged or malicious file from exhausting memory or stack.
namespace xmlLimit {
constexpr std::size_t bytes = 256 * 1024 * 1024;
/// Elements within elements, the root included.
constexpr std::size_t depth = 64;
/// Entities that a document declares; they may refer to each other.
constexpr std::size_t entities = 256;
}  // namespace xmlLimit

/// Why a document was refused.
struct XmlFault {
  /// Line 0 if the fault concerns the document as a whole.
  XmlPlace place;
  std::string cause;
};

/// Whether to record the places of elements, which takes time.
enum class XmlPlaces { Dropped, Kept };

/// Parses a whole XML 1.0 document: UTF-8, UTF-16, or US-ASCII or ISO 8859-1 if declared. A
/// document that is not well-formed or exceeds a limit is refused. Entities that the document
/// itself declares are expanded, unless that makes it disproportionately larger; nothing outside of
/// it is read, and references to external entities are ignored.
std::variant<XmlDocument, XmlFault> parseXml(std::string_view bytes,
                                             XmlPlaces places = XmlPlaces::Dropped);

}  // namespace tessara
