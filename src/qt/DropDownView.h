#pragma once

#include <QComboBox>

#include "qt/WidgetView.h"

namespace tessara {

/// A drop-down list. The closed list shows the end of a long line too, since ports are told apart
/// there. An editable one takes digits; Enter chooses the line that was typed.
class DropDownView : public QComboBox, public WidgetView {
 public:
  enum class Editing { None, Digits };

  DropDownView(Widget& subject, Editing editing, PersonActs acts, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

  /// The selected line as the closed list draws it, shortened where it does not fit.
  [[nodiscard]] QString shownText() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  [[nodiscard]] QSize minimumSizeHint() const override { return {}; }

 private:
  void makeEditable();
  void syncItems();
  void choose(int line);
  void layOutEditor();
  [[nodiscard]] QRect textRect() const;

  PersonActs acts_;
  Look look_;
};

}  // namespace tessara
