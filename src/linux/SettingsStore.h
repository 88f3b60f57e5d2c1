#pragma once

#include <map>
#include <optional>
#include <string>

namespace tessara {

/// The settings file of this system: Orvane/Tessara-Conf.ini in the user's configuration folder
/// ($XDG_CONFIG_HOME), over files of that name in the system-wide ones ($XDG_CONFIG_DIRS).
///
/// A value is one line of text under a name that begins with its group: "Settings/Language",
/// "Ports/COM9/Device". Texts are UTF-8. Every call goes to the file, so that what another program
/// wrote is seen; a write replaces the user's file in one step, so that a program that is killed
/// in the middle loses nothing.
///
/// Every failure is a RunTimeError with the path and what is wrong with it: a file that cannot be
/// read or written, a line or value that is none. Such a file is left exactly as it is.
class SettingsStore {
 public:
  static constexpr const char* organisation = "Orvane";
  static constexpr const char* application = "Tessara-Conf";

  /// The user's value, else the system-wide one; nothing if there is neither.
  [[nodiscard]] std::optional<std::string> value(const std::string& name) const;

  /// Writes the value to the user's file. Throws also for a text with control characters.
  void setValue(const std::string& name, const std::string& text);

  /// Removes the value from the user's file; a system-wide one shows again. Nothing happens if
  /// there is none.
  void remove(const std::string& name);

  /// All values of the user's and the system-wide files under `group`, by their names without the
  /// group.
  [[nodiscard]] std::map<std::string, std::string> values(const std::string& group) const;

  /// The user's file, whether it exists or not.
  [[nodiscard]] std::string path() const;
};

}  // namespace tessara
