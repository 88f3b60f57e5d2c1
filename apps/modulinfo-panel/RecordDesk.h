#pragma once

#include <QFileDialog>
#include <QString>
#include <QWidget>
#include <functional>
#include <optional>

#include "HostSettings.h"
#include "report/RecordReport.h"

namespace tessara {

/// What a person does with a record, with the dialogs for it: modal ones of the window that it
/// serves. Failures are told in a box.
class RecordDesk {
 public:
  /// All of them have to outlive the desk; `tell` shows a line on what was done.
  RecordDesk(QWidget& window, HostSettings& settings, std::function<void(const QString&)> tell);

  void setWords(const HostTexts& words) { words_ = words; }

  /// Asks for a file and writes the record into it.
  void save(const ModuleRecord& record);
  /// Shows the page in a preview, from which it can be printed.
  void print(const RecordSheet& sheet);
  /// Asks for a file and writes the page into it as PDF.
  void savePdf(const RecordSheet& sheet);
  /// Puts the record on the clipboard as text.
  void copy(const RecordSheet& sheet);
  /// Asks for a file and gives its record; nothing if the person or the file has none.
  struct Opened {
    ModuleRecord record;
    QString path;
  };
  std::optional<Opened> open();

  /// Asks for a file to save into; empty if the person chose none. `suffix` is that of the files.
  QString askForFile(const QString& title, const QString& suggested, const QString& filter,
                     const QString& suffix);
  /// Runs the task; what goes wrong with a file is told in a box.
  void guard(const std::function<void()>& task);

 private:
  /// The file that was chosen, whose folder is kept.
  QString chosenIn(const QFileDialog& dialog);
  void wrote(const QString& path);

  QWidget& window_;
  HostSettings& settings_;
  std::function<void(const QString&)> tell_;
  HostTexts words_;
};

/// The text of a menu entry or button without its access key and dots: the title of what it opens.
QString plainTitle(const QString& text);

}  // namespace tessara
