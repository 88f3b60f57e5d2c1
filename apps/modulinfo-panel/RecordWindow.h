#pragma once

#include <QCoreApplication>
#include <QLabel>
#include <QTextBrowser>
#include <QWidget>

#include "ButtonRow.h"
#include "RecordDesk.h"

namespace tessara {

/// Shows a record from a file, to be read, copied and printed. A banner says when it was recorded,
/// as it does not show the current state of the module.
class RecordWindow : public QWidget {
  Q_DECLARE_TR_FUNCTIONS(RecordWindow)

 public:
  /// The settings must outlive the window.
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
