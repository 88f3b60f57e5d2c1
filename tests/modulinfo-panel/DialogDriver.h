#pragma once

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QTimer>
#include <functional>

#include <gtest/gtest.h>

namespace tessara::testing {

/// Answers the next modal dialogs of this process like a user, from within their event loops. Each
/// call expects one dialog; the test fails if another one opens, or none.
class DialogDriver {
 public:
  DialogDriver() = default;
  DialogDriver(const DialogDriver&) = delete;
  DialogDriver& operator=(const DialogDriver&) = delete;
  /// Fails the test if a dialog has not opened.
  ~DialogDriver();

  /// Enters the path in the next file dialog and presses Enter.
  void chooseFile(const QString& path);
  /// Closes the next dialog with Escape.
  void cancel();
  /// Calls the function with the next dialog, then closes it with Escape.
  void look(std::function<void(QDialog&)> atDialog);
  /// Stores the text of the next message box and presses Enter.
  void acceptBox();

  /// The texts of the message boxes, in order.
  [[nodiscard]] const QStringList& boxes() const { return boxes_; }
  /// The file name that the last file dialog suggested.
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
