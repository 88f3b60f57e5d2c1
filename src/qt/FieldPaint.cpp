#include "qt/FieldPaint.h"

#include <QPainterPath>

#include "qt/PixelGrid.h"

namespace tessara {

void drawField(QPainter& painter, const QWidget& field, const Look& look) {
  const bool hasFocus = field.hasFocus() && field.isEnabled();
  const QColor edge = !field.isEnabled()   ? look.line
                      : field.underMouse() ? look.tint(look.edge, 0.6)
                                           : look.edge;
  drawRounded(painter, field.rect(), look.px(5), field.isEnabled() ? look.card : look.raised,
              hasFocus ? look.accent : edge, hasFocus ? look.px(2) : hairline(painter));
}

void drawArrow(QPainter& painter, const QWidget& field, const Look& look) {
  const QPointF middle(field.width() - look.px(11), field.height() / 2.0 + look.px(1.75));
  QPainterPath arrow;
  arrow.moveTo(middle + QPointF(-look.px(4), -look.px(4)));
  arrow.lineTo(middle);
  arrow.lineTo(middle + QPointF(look.px(4), -look.px(4)));
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(field.isEnabled() ? look.caption : look.faint, look.px(1.5), Qt::SolidLine,
                      Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(arrow);
  painter.restore();
}

void makeTransparent(QLineEdit& editor, const Look& look) {
  QPalette palette = editor.palette();
  palette.setColor(QPalette::Base, Qt::transparent);
  palette.setColor(QPalette::Text, look.text);
  palette.setColor(QPalette::Disabled, QPalette::Text, look.faint);
  editor.setPalette(palette);
}

}  // namespace tessara
