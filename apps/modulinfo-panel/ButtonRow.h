#pragma once

#include <QBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <functional>

namespace tessara {

/// The lower edge of a window: what was done last, and its buttons at the right.
class ButtonRow : public QHBoxLayout {
 public:
  explicit ButtonRow(QWidget& window);

  /// Adds a button; in its window the keys do the same, if there are any.
  void add(const QString& text, const QKeySequence& keys, const std::function<void()>& task);

  /// Shows what was done.
  void say(const QString& text) { said_->setText(text); }

 private:
  QWidget& window_;
  QLabel* said_;
};

}  // namespace tessara
