#include "widgets/Widget.h"

#include <algorithm>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace tessara {
namespace {

void run(const std::function<void()>& handler) {
  if (handler) {
    // A handler may replace itself.
    const std::function<void()> running = handler;
    running();
  }
}

}  // namespace

Widget* WidgetOwner::find(std::u16string_view name) const {
  const auto found = std::find_if(widgets_.begin(), widgets_.end(),
                                  [&](const Widget* widget) { return widget->name() == name; });
  return found == widgets_.end() ? nullptr : *found;
}

Widget& WidgetOwner::widget(std::u16string_view name) const {
  Widget* found = find(name);
  if (found == nullptr) {
    throw RunTimeError(ErrorNumber::InvalidCall, "there is no widget \"" + toUtf8(name) + "\"");
  }
  return *found;
}

Widget::Widget(WidgetOwner& owner, std::u16string name, WidgetKind kind, WidgetState design)
    : owner_(owner), name_(std::move(name)), kind_(kind), state_(std::move(design)) {
  owner_.widgets_.push_back(this);
}

void Widget::setCaption(std::u16string caption) {
  state_.caption = std::move(caption);
  tell(WidgetAspect::Caption);
}

void Widget::setText(std::u16string text) {
  state_.text = std::move(text);
  const auto item = std::find(state_.items.begin(), state_.items.end(), state_.text);
  state_.index =
      item == state_.items.end() ? -1 : static_cast<std::int32_t>(item - state_.items.begin());
  tell(WidgetAspect::Text);
}

void Widget::setToolTipTitle(std::u16string title) {
  state_.toolTipTitle = std::move(title);
  tell(WidgetAspect::ToolTipTitle);
}

void Widget::setToolTipText(std::u16string text) {
  state_.toolTipText = std::move(text);
  tell(WidgetAspect::ToolTipText);
}

void Widget::setEnabled(bool enabled) {
  state_.enabled = enabled;
  tell(WidgetAspect::Enabled);
}

void Widget::setVisible(bool visible) {
  state_.visible = visible;
  tell(WidgetAspect::Visible);
}

void Widget::setPicture(PictureSource picture) {
  state_.picture = std::move(picture);
  tell(WidgetAspect::Picture);
}

void Widget::setRow(std::int32_t top, std::int32_t height) {
  state_.place.top = top;
  state_.place.height = height;
  tell(WidgetAspect::Place);
}

void Widget::setLeft(std::int32_t left) {
  state_.place.left = left;
  tell(WidgetAspect::Place);
}

void Widget::setValue(bool value) {
  if (value) {
    for (Widget* other : owner_.widgets()) {
      if (other != this && other->state_.value) {
        other->setValue(false);
      }
    }
  }
  state_.value = value;
  tell(WidgetAspect::Value);
}

void Widget::setGradient(std::uint32_t startColor, std::uint32_t endColor) {
  state_.gradientstartcolor = startColor;
  state_.gradientendcolor = endColor;
  tell(WidgetAspect::Gradient);
}

void Widget::clearItems() {
  state_.items.clear();
  state_.index = -1;
  state_.text.clear();
  tell(WidgetAspect::Items);
}

void Widget::addItem(std::u16string item) {
  state_.items.push_back(std::move(item));
  tell(WidgetAspect::Items);
}

void Widget::refresh() {
  if (owner_.observer() != nullptr) {
    owner_.observer()->widgetRefreshed(*this);
  }
}

void Widget::select(std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= state_.items.size()) {
    throw RunTimeError(ErrorNumber::InvalidPropertyValue,
                       toUtf8(name_) + " has no line " + std::to_string(index) + ", only " +
                           std::to_string(state_.items.size()) + " lines counted from 0");
  }
  state_.index = index;
  state_.text = state_.items[static_cast<std::size_t>(index)];
  tell(WidgetAspect::Index);
  run(onClick_);
}

void Widget::select() {
  requireUsable("chosen");
  setValue(true);
  run(onClick_);
}

void Widget::press() {
  requireUsable("pressed");
  run(onClick_);
}

void Widget::type(std::u16string text) {
  requireUsable("typed into");
  setText(std::move(text));
}

void Widget::pointerEnter() {
  run(onPointerEnter_);
}

void Widget::pointerLeave() {
  run(onPointerLeave_);
}

void Widget::tick() {
  run(onClick_);
}

void Widget::setClickHandler(std::function<void()> handler) {
  onClick_ = std::move(handler);
}

void Widget::setPointerHandlers(std::function<void()> enter, std::function<void()> leave) {
  onPointerEnter_ = std::move(enter);
  onPointerLeave_ = std::move(leave);
}

void Widget::tell(WidgetAspect aspect) {
  if (owner_.observer() != nullptr) {
    owner_.observer()->widgetChanged(*this, aspect);
  }
}

void Widget::requireUsable(const char* action) const {
  if (!state_.enabled || !state_.visible) {
    throw RunTimeError(ErrorNumber::InvalidCall, toUtf8(name_) + " is " +
                                                     (state_.visible ? "disabled" : "hidden") +
                                                     " and cannot be " + action);
  }
  if (!owner_.blockedBy().empty()) {
    throw RunTimeError(ErrorNumber::InvalidCall, toUtf8(name_) + " cannot be " + action +
                                                     " while " + toUtf8(owner_.blockedBy()) +
                                                     " is open");
  }
}

}  // namespace tessara
