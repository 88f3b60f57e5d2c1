#pragma once

#include <QComboBox>

#include "qt/WidgetView.h"

namespace tessara {

/// A drop-down list. When closed, it elides a long line in the middle, because names of ports
/// differ at the end. An editable list accepts digits; Enter selects the line that was typed.
class DropDownView : public QComboBox, public WidgetView {
 public:
  enum class Editing { None, Digits };

  DropDownView(Widget& subject, Editing editing, InputHandler handleInput, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

  /// The selected line as the closed list draws it, elided to fit.
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

  InputHandler handleInput_;
  Look look_;
};

}  // namespace tessara
