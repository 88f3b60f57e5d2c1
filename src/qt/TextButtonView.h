#pragma once

#include <QPushButton>

#include "qt/WidgetView.h"

namespace tessara {

/// A button with a caption on a background of two colours, which the model changes while the
/// pointer is over it.
class TextButtonView : public QPushButton, public WidgetView {
 public:
  TextButtonView(Widget& subject, InputHandler handleInput, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

  /// The width of the caption with its margins.
  [[nodiscard]] double neededWidth() const;

 protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  InputHandler handleInput_;
  Look look_;
};

}  // namespace tessara
