#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessara {

/// `text` in UTF-8 as it can stand in a message, with control characters made visible.
std::string visible(std::u16string_view text);

/// True for a code unit that no text should hold: a control character, or U+FFFD, which stands for
/// bytes that could not be read as text.
bool isUnfit(char16_t unit);

/// How many texts a section has in a complete file; the control and its host read no others.
std::size_t completeCount(std::u16string_view header);

}  // namespace tessara
