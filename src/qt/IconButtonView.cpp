#include "qt/IconButtonView.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <utility>

#include "qt/PixelGrid.h"
#include "qt/QtText.h"

namespace tessara {

IconButtonView::IconButtonView(Widget& subject, const QKeySequence& shortcut,
                               InputHandler handleInput, QWidget* parent)
    : QAbstractButton(parent), WidgetView(subject), keys_(shortcut) {
  setFocusPolicy(Qt::StrongFocus);
  connect(this, &QAbstractButton::clicked, this, [this, handleInput = std::move(handleInput)] {
    handleInput(*this, [](Widget& widget) { widget.press(); });
  });
}

void IconButtonView::sync() {
  syncCommon(keys_.toString(QKeySequence::NativeText));
  QString name = accessibleDescription();
  while (name.endsWith('.')) {
    name.chop(1);
  }
  setAccessibleName(name.isEmpty() ? toQt(subject().name()) : name);
  update();
}

void IconButtonView::setLook(const Look& look) {
  look_ = look;
  update();
}

const Picture& IconButtonView::picture() {
  const PictureSource& source = subject().state().picture;
  const Inks inks = look_.inks(isEnabled());
  if (source != loadedSource_ || inks != loadedInks_) {
    picture_ = Picture::of(source, inks);
    loadedSource_ = source;
    loadedInks_ = inks;
  }
  return picture_;
}

void IconButtonView::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void IconButtonView::focusInEvent(QFocusEvent* event) {
  switch (event->reason()) {
    case Qt::MouseFocusReason:
      showsFocus_ = false;
      break;
    case Qt::TabFocusReason:
    case Qt::BacktabFocusReason:
    case Qt::ShortcutFocusReason:
      showsFocus_ = true;
      break;
    default:
      break;
  }
  QAbstractButton::focusInEvent(event);
}

void IconButtonView::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

void IconButtonView::keyPressEvent(QKeyEvent* event) {
  if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat()) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void IconButtonView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (isEnabled()) {
    const double share = isDown() ? 0.28 : underMouse() ? 0.12 : 0;
    const QColor edge = share > 0 ? look_.tint(look_.edge, 0.6) : look_.line;
    const bool isFocused = hasFocus() && showsFocus_;
    drawRounded(painter, rect(), look_.px(5), look_.tint(look_.raised, share),
                isFocused ? look_.accent : edge, isFocused ? look_.px(2) : hairline(painter));
  }
  picture().draw(painter, rect(), Qt::AlignHCenter);
}

}  // namespace tessara
