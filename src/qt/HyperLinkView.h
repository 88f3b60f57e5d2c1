#pragma once

#include <QAbstractButton>

#include "qt/WidgetView.h"

namespace tessara {

/// An address that opens when it is clicked, or with the keyboard. It can be copied.
class HyperLinkView : public QAbstractButton, public WidgetView {
 public:
  HyperLinkView(Widget& subject, PersonActs acts, QWidget* parent);

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
  /// Where the address itself stands.
  [[nodiscard]] QRect textRect() const;

  Look look_;
};

}  // namespace tessara
