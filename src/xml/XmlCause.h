#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessara {

/// What is wrong with a token that the parser cannot make sense of: `text` is the document in an
/// encoding that contains ASCII, `index` the byte at which the parser gave up.
std::string invalidTokenCause(std::string_view text, std::size_t index);

}  // namespace tessara
