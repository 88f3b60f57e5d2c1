#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessara {

/// The group of the ports that are entered by hand. A line of it that is not name=value is passed
/// over, so that it does not cost the other ports.
inline constexpr const char* portsGroup = "Ports";

/// The lines of a settings file as GKeyFile reads them. What GKeyFile does not know, or would move
/// when a value is added, travels in comment lines:
/// - every comment, in the form ; as well, and every empty line;
/// - lines that hold no value for us, such as a bad one in the group of the ports;
/// - what stands above a group, which belongs to that group and not to the one before;
/// - what stands at the end of the file, which stays below the values of the last group.
/// Values in front of the first group are those of the group General.
struct KeyFileText {
  std::string text;
  /// The lines that were passed over: "line 3: ...".
  std::vector<std::string> skipped;
};

/// Throws std::runtime_error for a line that is not part of an INI file: "line 3: ...".
KeyFileText toKeyFile(std::string_view file);

/// The settings file for the text that GKeyFile has written.
std::string fromKeyFile(std::string_view text);

/// The name behind the name of a group or value in the file: %20 is a blank, \ separates groups.
std::string decodedName(std::string_view name);

/// The other direction, for both the old and the new readers of the file.
std::string encodedName(const std::string& name);

}  // namespace tessara
