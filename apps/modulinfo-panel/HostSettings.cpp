#include "HostSettings.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <limits>

#include "common/ModuleRequest.h"

namespace tessara {
namespace {

constexpr auto organisation = "Orvane";
constexpr auto program = "modulinfo-panel";
constexpr auto baudrateName = "Connection/Baudrate";
constexpr auto folderName = "Files/Folder";

QString geometryName(const QString& window) {
  return window + "/Geometry";
}

}  // namespace

HostSettings::HostSettings(bool keeps) {
  if (keeps) {
    store_.emplace(QSettings::IniFormat, QSettings::UserScope, organisation, program);
  }
}

QByteArray HostSettings::geometry(const QString& window) const {
  return store_ ? store_->value(geometryName(window)).toByteArray() : QByteArray();
}

void HostSettings::keepGeometry(const QString& window, const QByteArray& geometry) {
  keep(geometryName(window), geometry);
}

std::optional<std::int32_t> HostSettings::baudrate() const {
  const qint64 baudrate = store_ ? store_->value(baudrateName).toLongLong() : 0;
  const bool isValid =
      baudrate >= minBaudrate && baudrate <= std::numeric_limits<std::int32_t>::max();
  return isValid ? std::optional(static_cast<std::int32_t>(baudrate)) : std::nullopt;
}

void HostSettings::keepBaudrate(std::int32_t baudrate) {
  keep(baudrateName, baudrate);
}

QString HostSettings::folder() const {
  const QString folder = store_ ? store_->value(folderName).toString() : QString();
  return QFileInfo(folder).isDir()
             ? folder
             : QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

void HostSettings::keepFolder(const QString& folder) {
  keep(folderName, folder);
}

void HostSettings::keep(const QString& name, const QVariant& value) {
  if (store_ && store_->value(name) != value) {
    store_->setValue(name, value);
  }
}

}  // namespace tessara
