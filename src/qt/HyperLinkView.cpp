#include "qt/HyperLinkView.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "qt/PixelGrid.h"
#include "qt/QtText.h"

namespace tessara {

HyperLinkView::HyperLinkView(Widget& subject, InputHandler handleInput, QWidget* parent)
    : QAbstractButton(parent), WidgetView(subject) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  connect(this, &QAbstractButton::clicked, this, [this, handleInput = std::move(handleInput)] {
    handleInput(*this, [](Widget& widget) { widget.press(); });
  });
  makeCopyable(*this, [this] { return readable(this->subject().caption()); });
}

void HyperLinkView::sync() {
  setText(withoutMnemonic(readable(subject().caption())));
  setAccessibleName(readable(subject().caption()));
  syncCommon();
  update();
}

void HyperLinkView::setLook(const Look& look) {
  look_ = look;
  QFont font = look.valueFont;
  font.setUnderline(true);
  setFont(font);
  update();
}

QRect HyperLinkView::textRect() const {
  const int width = fontMetrics().horizontalAdvance(readable(subject().caption()));
  return {0, 0, std::min(width, this->width()), height()};
}

QSize HyperLinkView::sizeHint() const {
  return {fontMetrics().horizontalAdvance(readable(subject().caption())), fontMetrics().height()};
}

bool HyperLinkView::hitButton(const QPoint& position) const {
  return textRect().contains(position);
}

void HyperLinkView::keyPressEvent(QKeyEvent* event) {
  if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && !event->isAutoRepeat()) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void HyperLinkView::mouseMoveEvent(QMouseEvent* event) {
  setCursor(hitButton(event->pos()) ? Qt::PointingHandCursor : Qt::ArrowCursor);
  QAbstractButton::mouseMoveEvent(event);
}

void HyperLinkView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (hasFocus()) {
    drawRounded(painter, textRect(), look_.px(3), look_.tint(look_.card, 0.14), look_.accent, 1);
  }
  painter.setPen(isEnabled() ? look_.accent : look_.faint);
  painter.drawText(textRect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   readable(subject().caption()));
}

}  // namespace tessara
