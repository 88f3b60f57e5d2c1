#pragma once

#include <string>
#include <string_view>

namespace tessara {

/// The text as it can stand in HTML, in UTF-8: `&`, `<`, `>` and `"` are named.
std::string asHtml(std::string_view text);

/// The text of a piece of HTML: without its tags, the entities that asHtml writes and `&nbsp;`
/// resolved.
std::string withoutTags(std::string_view html);

/// UTF-8 text in ASCII, each other character as its number: viewers of help files do not agree on
/// the encoding of contents and index.
std::string asAsciiHtml(std::string_view text);

}  // namespace tessara
