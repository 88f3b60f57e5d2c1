#pragma once

#include <QAbstractButton>
#include <QKeySequence>

#include "qt/WidgetView.h"

namespace tessara {

/// A button with a picture and no caption, raised when enabled, flat and pale when disabled. Space
/// and Enter press it.
class IconButtonView : public QAbstractButton, public WidgetView {
 public:
  /// The tool tip shows the shortcut, which may be empty.
  IconButtonView(Widget& subject, const QKeySequence& shortcut, InputHandler handleInput,
                 QWidget* parent);

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
  /// The picture in the current colours. The control sets the picture of a button repeatedly; it is
  /// loaded again only if picture or colours have changed.
  const Picture& picture();

  QKeySequence keys_;
  Look look_;
  Picture picture_;
  PictureSource loadedSource_;
  Inks loadedInks_;
  /// The focus frame is shown: the focus came by the keyboard.
  bool showsFocus_ = true;
};

}  // namespace tessara
