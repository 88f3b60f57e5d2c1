#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessara {

/// Describes what is wrong with an invalid token. `text` is the document in an encoding that
/// contains ASCII, `index` the byte at which the parser stopped.
std::string invalidTokenCause(std::string_view text, std::size_t index);

}  // namespace tessara
