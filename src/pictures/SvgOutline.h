#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tessara {

/// Limits within which an SVG picture is drawn quickly and without deep recursion. Drawings of a
/// logo or a device stay far below them; a malicious file of a few hundred bytes can exceed them.
struct SvgLimits {
  /// Elements to draw, counted again for each `use` that repeats them.
  static constexpr std::size_t maxDrawn = 100'000;
  /// Elements inside of each other.
  static constexpr std::size_t maxDepth = 256;
  /// Bytes that entities stand for, all together.
  static constexpr std::size_t maxEntityBytes = 4096;
};

/// What is wrong with an SVG file, for the end of a sentence about it; nothing if it is well-formed
/// XML with `svg` as its root and within the limits. Values of attributes are not examined:
/// programs that draw SVG ignore those that they do not know.
std::optional<std::string> faultOfSvg(std::string_view bytes);

}  // namespace tessara
