#include "linux/SettingsStore.h"

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>
#include <vector>

#include "base/RunTimeError.h"
#include "linux/SettingsFormat.h"

namespace tessara {

namespace {

std::unique_ptr<QSettings> open() {
  return std::make_unique<QSettings>(settingsFormat(), QSettings::UserScope,
                                     SettingsStore::organisation, SettingsStore::application);
}

[[noreturn]] void fail(const QString& path, const std::string& what) {
  throw RunTimeError(ErrorNumber::InvalidCall,
                     "The settings file " + path.toStdString() + ' ' + what);
}

/// The files that QSettings looks into, the user's first.
QStringList candidates(const QSettings& settings) {
  QStringList files{settings.fileName()};
  for (const QString& folder :
       QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation)) {
    const QString common = folder + u'/' + SettingsStore::organisation;
    files << common + u'/' + SettingsStore::application + QStringLiteral(".ini")
          << common + QStringLiteral(".ini");
  }
  return files;
}

/// The file that a value comes from.
QString originOf(const QSettings& settings, const QString& key) {
  for (const QString& file : candidates(settings)) {
    if (QSettings(file, settingsFormat()).contains(key)) return file;
  }
  return settings.fileName();
}

/// The settings, with every file that stands behind them found to be sound. QSettings itself takes
/// a broken file for an empty one when it meets it for the second time.
std::unique_ptr<QSettings> openSound() {
  auto settings = open();
  for (const QString& file : candidates(*settings)) {
    const std::string fault = QFileInfo::exists(file) ? settingsFault(file) : "";
    if (!fault.empty()) fail(file, "cannot be read: " + fault);
  }
  return settings;
}

/// A program that died while it took the lock leaves an empty lock file, which would hold up every
/// write for half a minute. A living one writes its name into the file within this time.
constexpr std::chrono::milliseconds lockNaming{50};

bool isEmptyFile(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::file_size(path, error) == 0 && !error;
}

/// The empty ones among the lock file of the settings file and those with which Qt locks the
/// removal of a lock, that of such a removal, and so on.
std::vector<std::filesystem::path> emptyLocks(const std::filesystem::path& settingsFile) {
  const std::string lock = settingsFile.filename().string() + ".lock";
  std::vector<std::filesystem::path> empty;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(settingsFile.parent_path(), error)) {
    const bool isLock = entry.path().filename().string().starts_with(lock);
    if (isLock && isEmptyFile(entry.path())) empty.push_back(entry.path());
  }
  return empty;
}

void removeAbandonedLocks(const QString& path) {
  const auto empty = emptyLocks(path.toStdString());
  if (empty.empty()) return;
  std::this_thread::sleep_for(lockNaming);
  std::error_code error;
  for (const auto& lock : empty) {
    if (isEmptyFile(lock)) std::filesystem::remove(lock, error);
  }
}

void requireWritable(const QSettings& settings) {
  const QFileInfo folder(QFileInfo(settings.fileName()).path());
  const bool folderIsWritable = !folder.exists() || folder.isWritable();
  if (!settings.isWritable() || !folderIsWritable) {
    fail(settings.fileName(), "cannot be written: no permission, or its folder cannot be made");
  }
}

/// Gives the value of `key` in the file to `raw`; an invalid one removes it.
void write(QSettings& settings, const QString& key, const QVariant& raw) {
  const auto put = [&](const QVariant& value) {
    value.isValid() ? settings.setValue(key, value) : settings.remove(key);
  };
  requireWritable(settings);
  removeAbandonedLocks(settings.fileName());
  const QVariant before = settings.value(key);
  put(raw);
  settings.sync();
  if (settings.status() != QSettings::NoError) {
    put(before);
    fail(settings.fileName(), "could not be written; it holds what it held before");
  }
}

/// The text of a value that is there.
std::string textOf(const QSettings& settings, const QString& key) {
  try {
    return decodeValue(settings.value(key)).toStdString();
  } catch (const RunTimeError& error) {
    fail(originOf(settings, key), "holds no usable " + key.toStdString() + ": " + error.what());
  }
}

}  // namespace

std::optional<std::string> SettingsStore::value(const std::string& name) const {
  const auto settings = openSound();
  const QString key = QString::fromStdString(name);
  return settings->contains(key) ? std::optional(textOf(*settings, key)) : std::nullopt;
}

std::map<std::string, std::string> SettingsStore::values(const std::string& group) const {
  const auto settings = openSound();
  const QString prefix = QString::fromStdString(group) + u'/';
  std::map<std::string, std::string> values;
  for (const QString& key : settings->allKeys()) {
    if (key.startsWith(prefix)) {
      values[key.mid(prefix.size()).toStdString()] = textOf(*settings, key);
    }
  }
  return values;
}

void SettingsStore::setValue(const std::string& name, const std::string& text) {
  const auto settings = openSound();
  settings->setFallbacksEnabled(false);
  const QString key = QString::fromStdString(name);
  write(*settings, key, encodeValue(QString::fromStdString(text), settings->value(key)));
}

void SettingsStore::remove(const std::string& name) {
  const auto settings = openSound();
  settings->setFallbacksEnabled(false);
  const QString key = QString::fromStdString(name);
  if (settings->contains(key)) write(*settings, key, {});
}

std::string SettingsStore::path() const {
  return open()->fileName().toStdString();
}

}  // namespace tessara
