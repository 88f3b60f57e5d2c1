#pragma once

#include <QAbstractButton>
#include <QKeySequence>

#include "qt/WidgetView.h"

namespace tessara {

/// A button with a picture and no caption. One that can be pressed stands out from the ground; a
/// disabled one is flat and pale. Space and Enter press it.
class IconButtonView : public QAbstractButton, public WidgetView {
 public:
  /// The shortcut is told in the tool tip; it may be empty.
  IconButtonView(Widget& subject, const QKeySequence& shortcut, PersonActs acts, QWidget* parent);

  QWidget& widget() override { return *this; }
  void sync() override;
  void setLook(const Look& look) override;

  [[nodiscard]] QSize sizeHint() const override { return size(); }

 protected:
  void enterEvent(QEnterEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The picture in the inks of this moment. The control hands its picture to a button over and
  /// over again; it is loaded anew only if it is another one or other inks.
  const Picture& picture();

  QKeySequence keys_;
  Look look_;
  Picture picture_;
  PictureSource loadedSource_;
  Inks loadedInks_;
  /// The focus came by the keyboard, or is to be seen before a key is pressed.
  bool showsFocus_ = true;
};

}  // namespace tessara
