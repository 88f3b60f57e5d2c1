#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tessara {

/// The values of one group, by their names without the group.
struct SettingsGroup {
  std::map<std::string, std::string> values;
  /// What is wrong with each value that is not text.
  std::map<std::string, std::string> unusable;
  /// The lines of the group that were passed over: "<path>, line 3: ...".
  std::vector<std::string> skippedLines;
};

/// The settings of this system: Orvane/Tessara-Conf.ini in the user's configuration folder
/// ($XDG_CONFIG_HOME), over files of that name in the system-wide ones ($XDG_CONFIG_DIRS).
///
/// A value is one line of text under a name that begins with its group: "Settings/Language",
/// "Ports/COM9/Device". Names are case-sensitive, texts are UTF-8. Every call goes to the files, so
/// that what another program wrote is seen. A write replaces the user's file in one step and leaves
/// everything else in it as it is; of several programs that write, one waits for the other.
///
/// A file that cannot be read or written, or has a line that is not part of an INI file, is a
/// RunTimeError with error 75, a value that is neither text nor a number one with error 13. The
/// message says which file and what is wrong with it. The files are then left exactly as they are.
class SettingsStore {
 public:
  static constexpr const char* organisation = "Orvane";
  static constexpr const char* application = "Tessara-Conf";

  /// The user's value, else the system-wide one; nothing if there is neither.
  [[nodiscard]] std::optional<std::string> value(const std::string& name) const;

  /// Writes the value to the user's file. A text with control characters is error 5.
  void setValue(const std::string& name, const std::string& text);

  /// Removes the value from the user's file; a system-wide one shows again. Nothing happens if
  /// there is none.
  void remove(const std::string& name);

  /// All values of the user's and the system-wide files under `group`.
  [[nodiscard]] SettingsGroup group(const std::string& group) const;

  /// The user's file, whether it exists or not.
  [[nodiscard]] std::string path() const;
};

}  // namespace tessara
