#include "qt/FrameView.h"

#include <QPainter>

#include "qt/PixelGrid.h"

namespace tessara {

FrameView::FrameView(Widget& subject, FrameRole role, QWidget* parent)
    : QFrame(parent), WidgetView(subject), role_(role) {}

void FrameView::setLook(const Look& look) {
  look_ = look;
  update();
}

void FrameView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (role_ == FrameRole::Card) {
    drawRounded(painter, rect(), look_.px(7), look_.card, look_.line, hairline(painter));
  } else {
    drawRounded(painter, rect(), look_.px(4), look_.raised, look_.raised, 0);
  }
}

}  // namespace tessara
