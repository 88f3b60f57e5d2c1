#include "serve/WidgetJson.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "base/Text.h"

namespace tessara {

namespace {

JsonText pictureJson(const PictureSource& picture) {
  if (const auto* number = std::get_if<std::int32_t>(&picture)) return *number;
  if (const auto* name = std::get_if<std::u16string>(&picture)) return toUtf8(*name);
  return nullptr;
}

JsonText itemsJson(const std::vector<std::u16string>& items) {
  std::vector<JsonText> list;
  for (const std::u16string& item : items) list.emplace_back(toUtf8(item));
  return JsonText::list(list);
}

struct StateKey {
  const char* name;
  JsonText (*read)(const WidgetState& state);
};

/// The keys of a state, and those of each kind of widget.
namespace stateKeys {

using State = const WidgetState&;

constexpr StateKey caption{"caption", [](State s) -> JsonText { return toUtf8(s.caption); }};
constexpr StateKey text{"text", [](State s) -> JsonText { return toUtf8(s.text); }};
constexpr StateKey toolTipTitle{"toolTipTitle",
                                [](State s) -> JsonText { return toUtf8(s.toolTipTitle); }};
constexpr StateKey toolTipText{"toolTipText",
                               [](State s) -> JsonText { return toUtf8(s.toolTipText); }};
constexpr StateKey enabled{"enabled", [](State s) -> JsonText { return s.enabled; }};
constexpr StateKey visible{"visible", [](State s) -> JsonText { return s.visible; }};
constexpr StateKey value{"value", [](State s) -> JsonText { return s.value; }};
constexpr StateKey items{"items", [](State s) { return itemsJson(s.items); }};
constexpr StateKey index{"index", [](State s) -> JsonText { return s.index; }};
constexpr StateKey picture{"picture", [](State s) { return pictureJson(s.picture); }};
constexpr StateKey left{"left", [](State s) -> JsonText { return s.place.left; }};
constexpr StateKey top{"top", [](State s) -> JsonText { return s.place.top; }};
constexpr StateKey width{"width", [](State s) -> JsonText { return s.place.width; }};
constexpr StateKey height{"height", [](State s) -> JsonText { return s.place.height; }};
constexpr StateKey gradientstartcolor{"gradientstartcolor",
                                      [](State s) -> JsonText { return s.gradientstartcolor; }};
constexpr StateKey gradientendcolor{"gradientendcolor",
                                    [](State s) -> JsonText { return s.gradientendcolor; }};
constexpr StateKey interval{"interval", [](State s) -> JsonText { return s.interval; }};

constexpr std::array dropDownKeys{text, enabled, visible, items, index, left, top, width, height};
constexpr std::array textBoxKeys{text, enabled, visible, left, top, width, height};
constexpr std::array timerKeys{enabled, interval};
constexpr std::array labelKeys{caption, toolTipTitle, toolTipText, enabled, visible,
                               left,    top,          width,       height};
constexpr std::array pictureKeys{enabled, visible, picture, left, top, width, height};
constexpr std::array buttonKeys{
    caption, toolTipTitle, toolTipText,        enabled,         visible, picture, left, top,
    width,   height,       gradientstartcolor, gradientendcolor};
constexpr std::array frameKeys{enabled, visible, left, top, width, height};
constexpr std::array imageListKeys{items};
constexpr std::array optionKeys{caption, enabled, visible, value, left, top, width, height};
constexpr std::array captionKeys{caption, enabled, visible, left, top, width, height};

}  // namespace stateKeys

struct KindKeys {
  WidgetKind kind;
  std::span<const StateKey> keys;
};

constexpr std::array<KindKeys, 12> kinds{{
    {WidgetKind::DropDownList, stateKeys::dropDownKeys},
    {WidgetKind::TextBox, stateKeys::textBoxKeys},
    {WidgetKind::Timer, stateKeys::timerKeys},
    {WidgetKind::Label, stateKeys::labelKeys},
    {WidgetKind::Image, stateKeys::pictureKeys},
    {WidgetKind::PictureBox, stateKeys::pictureKeys},
    {WidgetKind::Button, stateKeys::buttonKeys},
    {WidgetKind::Frame, stateKeys::frameKeys},
    {WidgetKind::ImageList, stateKeys::imageListKeys},
    {WidgetKind::Option, stateKeys::optionKeys},
    {WidgetKind::FormCaption, stateKeys::captionKeys},
    {WidgetKind::HyperLink, stateKeys::captionKeys},
}};

}  // namespace

JsonText widgetJson(const Widget& widget) {
  const auto* of = std::find_if(kinds.begin(), kinds.end(),
                                [&](const KindKeys& row) { return row.kind == widget.kind(); });
  std::vector<JsonText::Member> state;
  for (const StateKey& key : of->keys) state.emplace_back(key.name, key.read(widget.state()));
  return JsonText::object(state);
}

}  // namespace tessara
