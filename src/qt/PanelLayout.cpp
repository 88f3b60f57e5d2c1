#include "qt/PanelLayout.h"

#include <algorithm>
#include <cmath>

#include "control/Panel.h"
#include "qt/PanelStructure.h"

namespace tessara {
namespace {

/// Remaining width is inserted here, in twips from the left: widgets that span this line grow,
/// those to its right move.
constexpr double stretchLine = 11790;

/// The width in twips that a widget may gain: up to its first neighbour that shows something, or to
/// the end of the last one.
std::int32_t roomBefore(const WidgetOwner& panel, const Growth& growth) {
  const Place& own = panel.find(growth.growing.front())->state().place;
  const std::int32_t first = panel.find(growth.neighbours.front())->state().place.left;
  const std::int32_t gap = first - own.left - own.width;
  for (const auto name : growth.neighbours) {
    const Widget& neighbour = *panel.find(name);
    if (showsSomething(neighbour)) {
      return neighbour.state().place.left - first;
    }
  }
  const Place& last = panel.find(growth.neighbours.back())->state().place;
  return last.left + last.width - first + gap;
}

}  // namespace

PanelLayout::PanelLayout(const WidgetOwner& panel, const QSizeF& view, double pixelsPerTwip)
    : scale_(std::min(view.width() / (Panel::width * pixelsPerTwip),
                      view.height() / (Panel::height * pixelsPerTwip))),
      pixels_(pixelsPerTwip * scale_),
      spare_(std::max(0.0, view.width() / pixels_ - Panel::width)) {
  for (const auto& growth : growths()) {
    const std::int32_t room = roomBefore(panel, growth);
    for (const auto name : growth.growing) {
      growth_[panel.find(name)] = room;
    }
  }
}

double PanelLayout::across(double twips) const {
  return (twips + (twips > stretchLine ? spare_ : 0)) * pixels_;
}

QRect PanelLayout::place(const Widget& widget) const {
  const Place& place = widget.state().place;
  const auto grown = growth_.find(&widget);
  const double right = place.left + place.width + (grown == growth_.end() ? 0 : grown->second);
  const QPoint topLeft(static_cast<int>(std::lround(across(place.left))),
                       static_cast<int>(std::lround(place.top * pixels_)));
  const QPoint end(static_cast<int>(std::lround(across(right))),
                   static_cast<int>(std::lround((place.top + place.height) * pixels_)));
  return {topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y())};
}

}  // namespace tessara
