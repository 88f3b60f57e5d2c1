#pragma once

#include <string>
#include <string_view>

namespace tessara {

/// The text of a value as it stands in the settings file, behind the equals sign.
///
/// Quotation marks are taken off, and a comment at the end (; ...). \\ and \" stand for one sign,
/// \x with hexadecimal digits for a UTF-16 code unit; any other backslash stands for itself, and so
/// does \x in a value with a backslash that no program writes, so that \Device\xr0 may be entered
/// as it is.
///
/// Throws RunTimeError with error 13 (type mismatch) for a value that is neither text nor a number:
/// @Invalid() and other objects, a list of numbers, an open quotation mark.
std::string decodedValue(std::string_view raw);

/// The value for that text, with the comment at the end of the value that it replaces. Throws
/// RunTimeError with error 5 for a text with control characters, which a line cannot hold, or that
/// is not UTF-8.
std::string encodedValue(const std::string& text, std::string_view replaced);

}  // namespace tessara
