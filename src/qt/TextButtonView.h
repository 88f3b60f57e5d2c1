#pragma once

#include <QPushButton>

#include "qt/WidgetView.h"

namespace tessara {

/// A button with a caption on a ground of two colours, which the model changes under the pointer.
class TextButtonView : public QPushButton, public WidgetView {
 public:
  TextButtonView(Widget& subject, PersonActs acts, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

  /// The width of the caption with the room that it wants around it.
  [[nodiscard]] double neededWidth() const;

 protected:
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  PersonActs acts_;
  Look look_;
};

}  // namespace tessara
