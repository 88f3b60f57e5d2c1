#pragma once

#include <QBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <functional>

namespace tessara {

/// The bottom row of a window: a message about the last action, and the buttons at the right.
class ButtonRow : public QHBoxLayout {
 public:
  explicit ButtonRow(QWidget& window);

  /// Adds a button; the keys, if any, press it from anywhere in the window.
  void add(const QString& text, const QKeySequence& keys, const std::function<void()>& task);

  /// Shows a message about what was done.
  void showMessage(const QString& text) { message_->setText(text); }

 private:
  QWidget& window_;
  QLabel* message_;
};

}  // namespace tessara
