#pragma once

#include <QCoreApplication>
#include <QFileDialog>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>

#include "HostSettings.h"
#include "report/RecordReport.h"

namespace tessara {

/// Saves, opens, prints and copies records, with modal dialogs of the window that it serves.
/// Failures are shown in a message box.
class RecordDesk {
  Q_DECLARE_TR_FUNCTIONS(RecordDesk)

 public:
  /// Window and settings must outlive the desk; `tell` shows a message about what was done.
  RecordDesk(QWidget& window, HostSettings& settings, std::function<void(const QString&)> tell);

  /// Asks for a file and writes the record into it.
  void save(const ModuleRecord& record);
  /// Shows the page in a preview, from which it can be printed.
  void print(const RecordSheet& sheet);
  /// Asks for a file and writes the page into it as PDF.
  void savePdf(const RecordSheet& sheet);
  /// Puts the record on the clipboard as text.
  void copy(const RecordSheet& sheet);
  /// Asks for a file and reads its record; nothing if no file is chosen or it holds no record.
  struct Opened {
    ModuleRecord record;
    QString path;
  };
  std::optional<Opened> open();

  /// Asks for a file to save to; empty if none is chosen. `suffix` is the default extension.
  QString askForFile(const QString& title, const QString& suggested, const QString& filter,
                     const QString& suffix);
  /// Runs the task; an exception is shown in a message box.
  void guard(const std::function<void()>& task);
  /// Show what was done.
  void tellSaved(const QString& path);
  void tellCopied();

 private:
  /// The file chosen, whose folder is remembered.
  QString chosenIn(const QFileDialog& dialog);

  QWidget& window_;
  HostSettings& settings_;
  std::function<void(const QString&)> tell_;
};

}  // namespace tessara
