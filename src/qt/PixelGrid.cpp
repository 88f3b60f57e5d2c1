#include "qt/PixelGrid.h"

#include <algorithm>
#include <cmath>

namespace tessara {

QRectF onPixels(const QPainter& painter, const QRectF& rect) {
  const QTransform toDevice = painter.deviceTransform();
  const QRectF device = toDevice.mapRect(rect);
  const QPointF topLeft(std::round(device.left()), std::round(device.top()));
  const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
  return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

double hairline(const QPainter& painter) {
  const double pixels = painter.deviceTransform().m11();
  return std::max(1.0, std::round(pixels)) / pixels;
}

void drawRounded(QPainter& painter, const QRectF& rect, double radius, const QBrush& fill,
                 const QColor& edge, double width) {
  const double pixels = painter.deviceTransform().m11();
  const double line = std::round(width * pixels) / pixels;
  const QRectF inner = onPixels(painter, rect).adjusted(line / 2, line / 2, -line / 2, -line / 2);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(line > 0 ? QPen(edge, line) : QPen(Qt::NoPen));
  painter.setBrush(fill);
  painter.drawRoundedRect(inner, radius, radius);
  painter.restore();
}

}  // namespace tessara
