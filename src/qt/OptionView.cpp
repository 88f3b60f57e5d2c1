#include "qt/OptionView.h"

#include <QPainter>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "qt/PixelGrid.h"
#include "qt/QtText.h"

namespace tessara {
namespace {

// Measures at scale 1.
constexpr double markSide = 14;
constexpr double markGap = 8;

}  // namespace

OptionView::OptionView(Widget& subject, InputHandler handleInput, QWidget* parent)
    : QRadioButton(parent), WidgetView(subject) {
  connect(this, &QRadioButton::clicked, this, [this, handleInput = std::move(handleInput)] {
    handleInput(*this, [](Widget& widget) { widget.select(); });
  });
}

void OptionView::sync() {
  const QSignalBlocker quiet(this);
  setText(withoutMnemonic(readable(subject().caption())));
  // An exclusive button can only be cleared by checking another one.
  setAutoExclusive(subject().state().value);
  setChecked(subject().state().value);
  setAutoExclusive(true);
  syncCommon();
  update();
}

void OptionView::setLook(const Look& look) {
  look_ = look;
  setFont(look.valueFont);
  update();
}

int OptionView::textLeft() const {
  return qRound(look_.px(markSide + markGap));
}

QSize OptionView::sizeHint() const {
  const int text = fontMetrics().horizontalAdvance(readable(subject().caption()));
  return {textLeft() + text + qRound(look_.px(Look::focusMargin)), fontMetrics().height()};
}

QRect OptionView::content() const {
  return {0, 0, std::min(sizeHint().width(), width()), height()};
}

bool OptionView::hitButton(const QPoint& position) const {
  return content().contains(position);
}

void OptionView::enterEvent(QEnterEvent* event) {
  QRadioButton::enterEvent(event);
  update();
}

void OptionView::leaveEvent(QEvent* event) {
  QRadioButton::leaveEvent(event);
  update();
}

void OptionView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const bool isSet = isChecked();
  const double side = look_.px(markSide);
  const QRectF mark(0, (height() - side) / 2, side, side);
  const QColor edge = isSet                      ? look_.accent
                      : isDown() || underMouse() ? look_.tint(look_.edge, 0.6)
                                                 : look_.edge;
  drawRounded(painter, mark, side / 2, isEnabled() ? look_.card : look_.raised, edge,
              look_.px(isSet ? 1.5 : 1));
  if (isSet) {
    const double inset = side * 0.29;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isEnabled() ? look_.accent : look_.faint);
    painter.drawEllipse(mark.adjusted(inset, inset, -inset, -inset));
  }
  const int margin = qRound(look_.px(Look::focusMargin));
  const QRect text = content().adjusted(textLeft(), 0, 0, 0);
  if (hasFocus()) {
    drawRounded(painter, text.adjusted(-margin, 0, 0, 0), look_.px(3), look_.tint(look_.card, 0.14),
                look_.accent, 1);
  }
  painter.setPen(isEnabled() ? look_.text : look_.faint);
  painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   readable(subject().caption()));
}

}  // namespace tessara
