#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tessara {

/// Numbers of a catalogue as lookups read them. A catalogue is used on systems with a decimal point
/// and on systems with a decimal comma, so a text must mean the same on both.

/// The whole number that every system reads, or nothing.
std::optional<std::int32_t> wholeNumber(const std::u16string& text);

/// The firmware version that every system reads, with the three decimals that lookups compare, or
/// nothing.
std::optional<double> versionNumber(const std::u16string& text);

}  // namespace tessara
