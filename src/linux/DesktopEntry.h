#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>

namespace tessara {

/// The groups of a file as the desktop keeps its entries and associations in: "[Group]" lines and
/// "Key=Value" lines. A file that cannot be read has none.
class KeyFile {
 public:
  explicit KeyFile(const QString& path);

  /// The value as it is written; empty if it is not there.
  [[nodiscard]] QString value(const QString& group, const QString& key) const;
  /// The parts of a value between semicolons, without the empty ones.
  [[nodiscard]] QStringList list(const QString& group, const QString& key) const;

 private:
  QHash<QString, QHash<QString, QString>> groups_;
};

/// A program with its arguments and the folder it wants to run in, empty for any.
struct CommandLine {
  QString program;
  QStringList arguments;
  QString folder;
};

/// What starts the program of the desktop entry at `path` with `target`, a file's path or an
/// address. Nothing if the entry is hidden or broken, or its program is not installed.
///
/// The command line of the entry is taken apart by the rules of the Desktop Entry Specification;
/// no shell sees it.
std::optional<CommandLine> commandLineOf(const QString& path, const QString& target);

}  // namespace tessara
