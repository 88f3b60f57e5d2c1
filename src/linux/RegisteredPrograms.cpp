#include "linux/RegisteredPrograms.h"

#include <QStandardPaths>

namespace tessara {
namespace {

/// The association files there may be, those that decide first in front.
QStringList associationFiles() {
  QStringList names;
  for (const QString& desktop :
       qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(':', Qt::SkipEmptyParts)) {
    names += desktop.toLower() + "-mimeapps.list";
  }
  names += "mimeapps.list";

  QStringList files;
  for (const auto location :
       {QStandardPaths::GenericConfigLocation, QStandardPaths::ApplicationsLocation}) {
    for (const QString& folder : QStandardPaths::standardLocations(location)) {
      for (const QString& name : names) {
        files += folder + "/" + name;
      }
    }
  }
  return files;
}

/// The file of a desktop entry's id, in which a dash may stand for a folder; empty if there is
/// none.
QString entryFile(QString id) {
  for (;;) {
    QString file = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, id);
    const qsizetype dash = id.indexOf('-');
    if (!file.isEmpty() || dash < 0) {
      return file;
    }
    id[dash] = '/';
  }
}

/// The ids of the desktop entries for a type in the order in which they are to be tried.
QStringList entriesFor(const QString& type) {
  QStringList chosen;
  QStringList added;
  QStringList removed;
  const auto offer = [&added, &removed](const QStringList& ids) {
    for (const QString& id : ids) {
      if (!removed.contains(id)) {
        added += id;
      }
    }
  };
  for (const QString& file : associationFiles()) {
    const KeyFile associations(file);
    chosen += associations.list("Default Applications", type);
    offer(associations.list("Added Associations", type));
    removed += associations.list("Removed Associations", type);
  }
  for (const QString& folder :
       QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation)) {
    offer(KeyFile(folder + "/mimeinfo.cache").list("MIME Cache", type));
  }
  return chosen + added;
}

}  // namespace

std::optional<CommandLine> registeredProgram(const QStringList& types, const QString& target) {
  for (const QString& type : types) {
    for (const QString& id : entriesFor(type)) {
      const QString file = entryFile(id);
      auto found = file.isEmpty() ? std::nullopt : commandLineOf(file, target);
      if (found) {
        return found;
      }
    }
  }
  return std::nullopt;
}

}  // namespace tessara
