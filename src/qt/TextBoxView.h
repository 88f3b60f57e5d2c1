#pragma once

#include <QLineEdit>

#include "qt/WidgetView.h"

namespace tessara {

/// A box for a number of up to three digits.
class TextBoxView : public QLineEdit, public WidgetView {
 public:
  TextBoxView(Widget& subject, const InputHandler& handleInput, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {}; }

 private:
  Look look_;
};

}  // namespace tessara
