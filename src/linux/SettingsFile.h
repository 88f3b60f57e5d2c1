#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <glib.h>

namespace tessara {

/// The contents of one settings file. Values are raw, as they stand behind the equals sign, and
/// have the names under which the store knows them: "Settings/COM Port", "Ports/COM9/Device". Of
/// values with the same name the last counts. Everything else in the file stays where it is.
class SettingsFile {
 public:
  /// Throws std::runtime_error for contents that are not an INI file: "line 3: ...".
  explicit SettingsFile(std::string_view contents);

  /// All values, by their names.
  [[nodiscard]] std::map<std::string, std::string> values() const;
  /// The value of that name; empty if there is none.
  [[nodiscard]] std::string value(const std::string& name) const;
  [[nodiscard]] bool contains(const std::string& name) const { return find(name).has_value(); }

  void set(const std::string& name, const std::string& raw);
  void remove(const std::string& name);

  /// What is to be written.
  [[nodiscard]] std::string contents() const;

  /// The lines of the group of the ports that were passed over: "line 3: ...".
  [[nodiscard]] const std::vector<std::string>& skippedLines() const { return skipped_; }

 private:
  struct Place {
    std::string name;
    std::string group;
    std::string key;
  };

  struct Release {
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
  };

  void load(std::string_view contents);
  [[nodiscard]] std::vector<Place> places() const;
  [[nodiscard]] std::optional<Place> find(const std::string& name) const;

  std::unique_ptr<GKeyFile, Release> file_;
  std::vector<std::string> skipped_;
};

}  // namespace tessara
