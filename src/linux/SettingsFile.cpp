#include "linux/SettingsFile.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "linux/SettingsFormat.h"

namespace tessara {

namespace {

/// The group of the values that have none, and one that has that name nevertheless.
constexpr const char* generalGroup = "General";
constexpr const char* groupNamedGeneral = "%General";

struct FreeText {
  void operator()(char* text) const { g_free(text); }
  void operator()(char** texts) const { g_strfreev(texts); }
};

std::vector<std::string> listOf(char** texts) {
  const std::unique_ptr<char*, FreeText> owner(texts);
  std::vector<std::string> list;
  for (; texts != nullptr && *texts != nullptr; ++texts) list.emplace_back(*texts);
  return list;
}

std::string textOf(char* text) {
  const std::unique_ptr<char, FreeText> owner(text);
  return text == nullptr ? "" : text;
}

/// What the names of the values of a group begin with.
std::string prefixOf(const std::string& group) {
  if (group == generalGroup) return "";
  return (group == groupNamedGeneral ? generalGroup : decodedName(group)) + '/';
}

/// The group and key for a value that is new to the file.
std::pair<std::string, std::string> newPlace(const std::string& name) {
  const auto slash = name.find('/');
  if (slash == std::string::npos) return {generalGroup, encodedName(name)};
  const std::string group = encodedName(name.substr(0, slash));
  return {group == generalGroup ? groupNamedGeneral : group, encodedName(name.substr(slash + 1))};
}

}  // namespace

SettingsFile::SettingsFile(std::string_view contents) {
  load(contents);
}

void SettingsFile::load(std::string_view contents) {
  KeyFileText lines = toKeyFile(contents);
  file_.reset(g_key_file_new());
  GError* error = nullptr;
  const auto flags =
      static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
  if (g_key_file_load_from_data(file_.get(), lines.text.c_str(), lines.text.size(), flags,
                                &error) == FALSE) {
    const std::string message = error->message;
    g_error_free(error);
    throw std::runtime_error(message);
  }
  skipped_ = std::move(lines.skipped);
}

std::vector<SettingsFile::Place> SettingsFile::places() const {
  std::vector<Place> places;
  for (const std::string& group : listOf(g_key_file_get_groups(file_.get(), nullptr))) {
    const std::string prefix = prefixOf(group);
    for (const std::string& key :
         listOf(g_key_file_get_keys(file_.get(), group.c_str(), nullptr, nullptr))) {
      places.push_back({prefix + decodedName(key), group, key});
    }
  }
  return places;
}

std::optional<SettingsFile::Place> SettingsFile::find(const std::string& name) const {
  const std::vector<Place> all = places();
  const auto last = std::find_if(all.rbegin(), all.rend(),
                                 [&](const Place& place) { return place.name == name; });
  return last == all.rend() ? std::nullopt : std::optional(*last);
}

std::map<std::string, std::string> SettingsFile::values() const {
  std::map<std::string, std::string> values;
  for (const auto& [name, group, key] : places()) {
    values[name] = textOf(g_key_file_get_value(file_.get(), group.c_str(), key.c_str(), nullptr));
  }
  return values;
}

std::string SettingsFile::value(const std::string& name) const {
  const auto place = find(name);
  return place ? textOf(g_key_file_get_value(file_.get(), place->group.c_str(), place->key.c_str(),
                                             nullptr))
               : "";
}

void SettingsFile::set(const std::string& name, const std::string& raw) {
  const auto place = find(name);
  const auto [group, key] = place ? std::pair(place->group, place->key) : newPlace(name);
  g_key_file_set_value(file_.get(), group.c_str(), key.c_str(), raw.c_str());
}

void SettingsFile::remove(const std::string& name) {
  // GKeyFile removes one line of several with the same name, and shows the others when it reads
  // the file again.
  while (const auto place = find(name)) {
    g_key_file_remove_key(file_.get(), place->group.c_str(), place->key.c_str(), nullptr);
    load(contents());
  }
}

std::string SettingsFile::contents() const {
  return fromKeyFile(textOf(g_key_file_to_data(file_.get(), nullptr, nullptr)));
}

}  // namespace tessara
