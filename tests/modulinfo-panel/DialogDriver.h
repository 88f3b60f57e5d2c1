#pragma once

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>
#include <functional>

#include <gtest/gtest.h>

namespace tessara::testing {

/// Answers the next modal dialog of this process as a person does, from within its own loop. Each
/// expects its dialog to come; the test fails if another one comes, or none.
class DialogDriver {
 public:
  DialogDriver() = default;
  DialogDriver(const DialogDriver&) = delete;
  DialogDriver& operator=(const DialogDriver&) = delete;
  /// Fails the test if a dialog has not come.
  ~DialogDriver();

  /// Puts the path into the next file dialog and presses Enter.
  void chooseFile(const QString& path);
  /// Closes the next dialog with Escape.
  void cancel();
  /// Looks at the next dialog, which is then closed with Escape.
  void look(std::function<void(QDialog&)> atDialog);
  /// Keeps the text of the next message box and presses its Enter.
  void acceptBox();

  /// What the boxes said, in their order.
  [[nodiscard]] const QStringList& boxes() const { return boxes_; }
  /// What the next file dialog suggested.
  [[nodiscard]] const QString& suggested() const { return suggested_; }

 private:
  void next(std::function<void(QDialog&)> answer);
  void serve();

  std::vector<std::function<void(QDialog&)>> answers_;
  QTimer timer_;
  QDialog* served_ = nullptr;
  QStringList boxes_;
  QString suggested_;
};

}  // namespace tessara::testing
