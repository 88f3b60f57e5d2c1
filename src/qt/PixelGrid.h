#pragma once

#include <QPainter>
#include <QRectF>

namespace tessara {

/// The rectangle moved to the nearest whole pixels of the device, so that its edges are sharp at
/// every scale factor.
QRectF onPixels(const QPainter& painter, const QRectF& rect);

/// The width of a thin line: as near to one logical pixel as whole pixels of the device go.
double hairline(const QPainter& painter);

/// A rounded rectangle, filled and with a sharp edge of that width (in logical pixels, 0 for none)
/// that lies inside of it.
void drawRounded(QPainter& painter, const QRectF& rect, double radius, const QBrush& fill,
                 const QColor& edge, double width);

}  // namespace tessara
