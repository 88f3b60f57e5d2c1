#pragma once

#include <string>
#include <string_view>

namespace tessara {

/// The text escaped for HTML, in UTF-8: `&`, `<`, `>` and `"` become entities.
std::string asHtml(std::string_view text);

/// The plain text of a piece of HTML: tags removed, `&nbsp;` and the entities that asHtml writes
/// resolved.
std::string withoutTags(std::string_view html);

/// The text escaped for HTML in ASCII, other characters as numbers: help viewers use different
/// encodings for contents and index.
std::string asAsciiHtml(std::string_view text);

}  // namespace tessara
