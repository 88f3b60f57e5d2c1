#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessara {

/// `text` in UTF-8 for use in a message, with control characters made visible.
std::string visible(std::u16string_view text);

/// True for a code unit that texts must not contain: a control character, or U+FFFD, which replaces
/// bytes that are not valid text.
bool isUnfit(char16_t unit);

/// The number of texts in a section of a complete file; the control and its host use no others.
std::size_t completeCount(std::u16string_view header);

}  // namespace tessara
