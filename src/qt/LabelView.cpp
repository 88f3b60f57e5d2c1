#include "qt/LabelView.h"

#include <QFocusEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "qt/PixelGrid.h"
#include "qt/QtText.h"

namespace tessara {
namespace {

constexpr double smallestCaption = 0.8;
constexpr double titleSize = 1.6;
/// The gap between a heading and its line.
constexpr double sectionGap = 8;
// Shown in place of an empty value.
constexpr QChar absent(0x2013);

}  // namespace

LabelView::LabelView(Widget& subject, LabelRole role, QWidget* parent)
    : QLabel(parent), WidgetView(subject), role_(role) {
  setTextFormat(Qt::PlainText);
  if (!isValue()) {
    return;
  }
  setFocusPolicy(role == LabelRole::LongValue ? Qt::StrongFocus : Qt::ClickFocus);
  makeCopyable(*this, [this] { return text(); });
}

void LabelView::sync() {
  setText(readable(subject().caption()));
  syncCommon();
}

void LabelView::setLook(const Look& look) {
  look_ = look;
  switch (role_) {
    case LabelRole::Caption:
      setFont(look.captionFont);
      break;
    case LabelRole::Value:
    case LabelRole::LongValue:
    case LabelRole::Text:
      setFont(look.valueFont);
      break;
    case LabelRole::StrongValue:
    case LabelRole::Section:
      setFont(look.strongFont);
      break;
    case LabelRole::Title: {
      QFont font = look.strongFont;
      font.setPointSizeF(font.pointSizeF() * titleSize);
      setFont(font);
      break;
    }
  }
  update();
}

QRect LabelView::room() const {
  const int margin = role_ == LabelRole::LongValue ? qRound(look_.px(Look::focusMargin)) : 0;
  return rect().adjusted(margin, 0, -margin, 0);
}

bool LabelView::isValue() const {
  return role_ == LabelRole::Value || role_ == LabelRole::StrongValue ||
         role_ == LabelRole::LongValue;
}

bool LabelView::wraps() const {
  return role_ == LabelRole::Text || height() >= 2 * QFontMetrics(font()).lineSpacing();
}

double LabelView::neededWidth() const {
  return role_ == LabelRole::Text ? 0 : std::ceil(QFontMetricsF(font()).horizontalAdvance(text()));
}

double LabelView::neededHeight(double width) const {
  const QRectF room(0, 0, width, QWIDGETSIZE_MAX);
  return role_ == LabelRole::Text
             ? QFontMetricsF(font()).boundingRect(room, Qt::TextWordWrap, text()).height()
             : 0;
}

QFont LabelView::fittingFont() const {
  QFont fitting = font();
  const double needed = QFontMetricsF(fitting).horizontalAdvance(text());
  if (role_ == LabelRole::Caption && !wraps() && needed > room().width()) {
    fitting.setPointSizeF(fitting.pointSizeF() *
                          std::max(smallestCaption, room().width() / needed * 0.99));
  }
  return fitting;
}

QString LabelView::shownText() const {
  if (wraps()) {
    const QRect needed = QFontMetrics(font()).boundingRect(room(), Qt::TextWordWrap, text());
    if (room().contains(needed)) {
      return text();
    }
  }
  const QFontMetricsF metrics(fittingFont());
  const bool fits = metrics.horizontalAdvance(text()) <= room().width();
  return fits ? text() : metrics.elidedText(text(), Qt::ElideRight, room().width());
}

QString LabelView::wholeText() const {
  return toolTip().isEmpty() ? toolTipMarkup({}, text()) : toolTip();
}

bool LabelView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && isCut()) {
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), wholeText(), this);
    return true;
  }
  return QLabel::event(event);
}

void LabelView::focusInEvent(QFocusEvent* event) {
  QLabel::focusInEvent(event);
  const bool byKey =
      event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  if (byKey && !text().isEmpty()) {
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), wholeText(), this);
  }
  update();
}

void LabelView::focusOutEvent(QFocusEvent* event) {
  QLabel::focusOutEvent(event);
  QToolTip::hideText();
  update();
}

void LabelView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (hasFocus()) {
    drawRounded(painter, rect(), look_.px(3), look_.tint(look_.card, 0.14), look_.accent, 1);
  }
  const bool isAbsent = text().isEmpty() && isValue();
  painter.setFont(fittingFont());
  if (role_ == LabelRole::Section) {
    const double start = neededWidth() + look_.px(sectionGap);
    painter.fillRect(
        onPixels(painter, QRectF(start, height() / 2.0, width() - start, hairline(painter))),
        look_.line);
  }
  painter.setPen(isAbsent ? look_.faint : role_ == LabelRole::Caption ? look_.caption : look_.text);
  const QString shown = isAbsent ? QString(absent) : shownText();
  const int across = role_ == LabelRole::Text ? Qt::AlignTop : Qt::AlignVCenter;
  const int flags = across | Qt::AlignLeft | Qt::TextDontClip;
  painter.drawText(room(), wraps() ? flags | Qt::TextWordWrap : flags | Qt::TextSingleLine, shown);
}

}  // namespace tessara
