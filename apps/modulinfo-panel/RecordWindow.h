#pragma once

#include <QLabel>
#include <QTextBrowser>
#include <QWidget>

#include "ButtonRow.h"
#include "RecordDesk.h"

namespace tessara {

/// A record from a file, to be read, copied and printed. It says that it is a record, and of when:
/// nothing in it is the module as it is at this moment.
class RecordWindow : public QWidget {
 public:
  /// Settings have to outlive the window.
  RecordWindow(RecordSheet sheet, const QString& path, HostSettings& settings,
               QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void layOutPage();
  void makeButtons();
  void takePlace();
  [[nodiscard]] RecordInk ink() const;

  RecordSheet sheet_;
  HostSettings& settings_;
  QLabel banner_;
  QTextBrowser page_;
  ButtonRow* buttons_;
  RecordDesk desk_;
};

}  // namespace tessara
