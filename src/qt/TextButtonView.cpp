#include "qt/TextButtonView.h"

#include <QPainter>
#include <utility>

#include "qt/PixelGrid.h"
#include "qt/QtText.h"

namespace tessara {
namespace {

/// The margin on each side of the caption, at scale 1.
constexpr double padding = 14;

}  // namespace

TextButtonView::TextButtonView(Widget& subject, InputHandler handleInput, QWidget* parent)
    : QPushButton(parent), WidgetView(subject), handleInput_(std::move(handleInput)) {
  connect(this, &QPushButton::clicked, this,
          [this] { handleInput_(*this, [](Widget& widget) { widget.press(); }); });
}

void TextButtonView::sync() {
  setText(withoutMnemonic(readable(subject().caption())));
  syncCommon();
  update();
}

void TextButtonView::setLook(const Look& look) {
  look_ = look;
  setFont(look.valueFont);
  update();
}

double TextButtonView::neededWidth() const {
  return fontMetrics().horizontalAdvance(readable(subject().caption())) + 2 * look_.px(padding);
}

void TextButtonView::enterEvent(QEnterEvent* event) {
  QPushButton::enterEvent(event);
  handleInput_(*this, [](Widget& widget) { widget.pointerEnter(); });
}

void TextButtonView::leaveEvent(QEvent* event) {
  QPushButton::leaveEvent(event);
  handleInput_(*this, [](Widget& widget) { widget.pointerLeave(); });
}

void TextButtonView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QLinearGradient ground(0, 0, 0, height());
  ground.setColorAt(0, look_.ground(subject().state().gradientstartcolor));
  ground.setColorAt(1, look_.ground(subject().state().gradientendcolor));
  const bool isMarked = isEnabled() && (hasFocus() || isDefault());
  drawRounded(painter, rect(), look_.px(5),
              isDown() ? QBrush(look_.tint(look_.raised, 0.28)) : QBrush(ground),
              isMarked ? look_.accent : look_.edge, hasFocus() ? look_.px(2) : hairline(painter));
  painter.setPen(isEnabled() ? look_.text : look_.faint);
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, readable(subject().caption()));
}

}  // namespace tessara
