#pragma once

#include <QRadioButton>

#include "qt/WidgetView.h"

namespace tessara {

/// One of several exclusive options. The arrow keys move between them.
class OptionView : public QRadioButton, public WidgetView {
 public:
  OptionView(Widget& subject, InputHandler handleInput, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  [[nodiscard]] bool hitButton(const QPoint& position) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The area of mark and text.
  [[nodiscard]] QRect content() const;
  [[nodiscard]] int textLeft() const;

  Look look_;
};

}  // namespace tessara
