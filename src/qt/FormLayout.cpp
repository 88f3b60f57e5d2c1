#include "qt/FormLayout.h"

#include <algorithm>
#include <vector>

namespace tessara {
namespace {

/// The gap between a text and its right neighbour, in twips.
constexpr std::int32_t textGap = 90;

bool isPlaced(const Widget& widget) {
  return widget.state().place.width > 0;
}

bool isText(const Widget& widget) {
  return isPlaced(widget) &&
         (widget.kind() == WidgetKind::Label || widget.kind() == WidgetKind::Option ||
          widget.kind() == WidgetKind::HyperLink);
}

bool isBeside(const Place& one, const Place& other) {
  return one.top < other.top + other.height && other.top < one.top + one.height;
}

}  // namespace

FormLayout::FormLayout(const Form& form, double pixelsPerTwip, const Needs& needs)
    : form_(form), pixels_(pixelsPerTwip) {
  std::int32_t margin = form.area().width;
  for (const Widget* widget : form.widgets()) {
    if (isPlaced(*widget)) {
      margin = std::min(margin, widget->state().place.left);
    }
  }
  edge_ = form.area().width - margin;
  widenFor(needs);
  heightenFor(needs);
  placeButtons(needs);
}

double FormLayout::at(std::int32_t twips, const Insertions& insertions) const {
  double pixels = twips * pixels_;
  for (const auto& [line, room] : insertions) {
    pixels += line <= twips ? room : 0;
  }
  return pixels;
}

std::int32_t FormLayout::rightOf(const Widget& widget) const {
  const Place& own = widget.state().place;
  std::int32_t right = std::max(edge_, own.left + textGap);
  for (const Widget* other : form_.widgets()) {
    const Place& place = other->state().place;
    if (isPlaced(*other) && place.left > own.left && isBeside(own, place)) {
      right = std::min(right, place.left - textGap);
    }
  }
  return right;
}

QRectF FormLayout::roomOf(const Widget& widget) const {
  const Place& place = widget.state().place;
  const QPointF topLeft(at(place.left, across_), at(place.top, down_));
  const double bottom = at(place.top + place.height, down_);
  if (isText(widget)) {
    return {topLeft, QPointF(at(rightOf(widget), across_), bottom)};
  }
  const double width = place.width * pixels_;
  const double right = at(place.left + place.width, across_);
  return {QPointF(right - width, topLeft.y()), QPointF(right, bottom)};
}

void FormLayout::widenFor(const Needs& needs) {
  std::vector<const Widget*> texts;
  for (const Widget* widget : form_.widgets()) {
    if (isText(*widget)) {
      texts.push_back(widget);
    }
  }
  // From the left, so that the space inserted for one text counts for those that span it.
  std::sort(texts.begin(), texts.end(), [this](const Widget* one, const Widget* other) {
    return rightOf(*one) < rightOf(*other);
  });
  for (const Widget* text : texts) {
    const double missing = needs.width(*text) - roomOf(*text).width();
    if (missing > 0) {
      across_[rightOf(*text)] += missing;
    }
  }
}

void FormLayout::heightenFor(const Needs& needs) {
  for (const Widget* widget : form_.widgets()) {
    const QRectF room = roomOf(*widget);
    const double missing =
        isText(*widget) ? needs.height(*widget, room.width()) - room.height() : 0;
    if (missing > 0) {
      down_[widget->state().place.top + widget->state().place.height] += missing;
    }
  }
}

void FormLayout::placeButtons(const Needs& needs) {
  std::vector<const Widget*> buttons;
  for (const Widget* widget : form_.widgets()) {
    if (isPlaced(*widget) && widget->kind() == WidgetKind::Button) {
      buttons.push_back(widget);
    }
  }
  std::sort(buttons.begin(), buttons.end(), [](const Widget* one, const Widget* other) {
    return one->state().place.left > other->state().place.left;
  });
  const double widened = size().width() - form_.area().width * pixels_;
  double pushed = 0;
  for (const Widget* button : buttons) {
    const Place& place = button->state().place;
    const double width = std::max(place.width * pixels_, needs.width(*button));
    const double right = (place.left + place.width) * pixels_ + widened - pushed;
    buttons_[button] = QRectF(right - width, at(place.top, down_), width, place.height * pixels_);
    pushed += width - place.width * pixels_;
  }
}

QRect FormLayout::place(const Widget& widget) const {
  const auto button = buttons_.find(&widget);
  const QRectF room = button == buttons_.end() ? roomOf(widget) : button->second;
  const QPoint topLeft = room.topLeft().toPoint();
  const QPoint end = room.bottomRight().toPoint();
  return {topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y())};
}

QSize FormLayout::size() const {
  const Place area = form_.area();
  return QSizeF(at(area.width, across_), at(area.height, down_)).toSize();
}

}  // namespace tessara
