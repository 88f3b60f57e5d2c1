#pragma once

#include <QAbstractButton>

#include "qt/WidgetView.h"

namespace tessara {

/// An address that a click or the keyboard opens. It can be copied.
class HyperLinkView : public QAbstractButton, public WidgetView {
 public:
  HyperLinkView(Widget& subject, InputHandler handleInput, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  [[nodiscard]] bool hitButton(const QPoint& position) const override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The area of the text itself.
  [[nodiscard]] QRect textRect() const;

  Look look_;
};

}  // namespace tessara
