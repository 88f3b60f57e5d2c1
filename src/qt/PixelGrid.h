#pragma once

#include <QPainter>
#include <QRectF>

namespace tessara {

/// Places of the model are in twips.
inline constexpr double twipsPerInch = 1440;

/// The rectangle aligned to whole device pixels, so that its edges are sharp at every scale factor.
QRectF onPixels(const QPainter& painter, const QRectF& rect);

/// The width of a thin line: whole device pixels, as close to one logical pixel as possible.
double hairline(const QPainter& painter);

/// Draws a filled, rounded rectangle with a sharp border inside it, of that width in logical pixels
/// (0 for none).
void drawRounded(QPainter& painter, const QRectF& rect, double radius, const QBrush& fill,
                 const QColor& edge, double width);

}  // namespace tessara
