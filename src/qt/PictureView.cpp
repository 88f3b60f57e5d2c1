#include "qt/PictureView.h"

#include <QPainter>

#include "qt/PixelGrid.h"
#include "qt/QtText.h"

namespace tessara {

PictureView::PictureView(Widget& subject, PictureGround ground, QWidget* parent)
    : QLabel(parent), WidgetView(subject), ground_(ground) {}

bool PictureView::isLogo() const {
  return ground_ == PictureGround::White &&
         std::holds_alternative<std::u16string>(subject().state().picture);
}

void PictureView::sync() {
  picture_ = Picture::of(subject().state().picture, look_.inks(true));
  syncCommon();
  update();
}

void PictureView::setLook(const Look& look) {
  look_ = look;
  update();
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  if (picture_.isNull()) {
    return;
  }
  QPainter painter(this);
  QRectF room = rect();
  if (isLogo()) {
    drawRounded(painter, room, look_.px(7), Qt::white, look_.dark ? QColor(Qt::white) : look_.line,
                hairline(painter));
    room.adjust(look_.px(6), look_.px(4), -look_.px(6), -look_.px(4));
  }
  picture_.draw(painter, room, Qt::AlignHCenter, look_.scale);
}

}  // namespace tessara
