#include "PanelLog.h"

#include "base/Text.h"

namespace tessara::testing {
namespace {

std::string truth(bool value) {
  return value ? "true" : "false";
}

std::string pictureText(const PictureSource& picture) {
  if (const auto* number = std::get_if<std::int32_t>(&picture)) {
    return std::to_string(*number);
  }
  if (const auto* key = std::get_if<std::u16string>(&picture)) {
    return toUtf8(*key);
  }
  return "none";
}

std::string describe(const WidgetState& state, WidgetAspect aspect) {
  switch (aspect) {
    case WidgetAspect::Caption:
      return "caption=" + toUtf8(state.caption);
    case WidgetAspect::Text:
      return "text=" + toUtf8(state.text);
    case WidgetAspect::ToolTipTitle:
      return "toolTipTitle=" + toUtf8(state.toolTipTitle);
    case WidgetAspect::ToolTipText:
      return "toolTipText=" + toUtf8(state.toolTipText);
    case WidgetAspect::Enabled:
      return "enabled=" + truth(state.enabled);
    case WidgetAspect::Visible:
      return "visible=" + truth(state.visible);
    case WidgetAspect::Picture:
      return "picture=" + pictureText(state.picture);
    case WidgetAspect::Items:
      return "items=" + std::to_string(state.items.size());
    case WidgetAspect::Index:
      return "index=" + std::to_string(state.index);
    case WidgetAspect::Value:
      return "value=" + truth(state.value);
    case WidgetAspect::Gradient:
      return "gradient=" + std::to_string(state.gradientstartcolor) + "," +
             std::to_string(state.gradientendcolor);
    case WidgetAspect::Place:
      return "row=" + std::to_string(state.place.top) + "," + std::to_string(state.place.height);
  }
  return {};
}

}  // namespace

void PanelLog::widgetChanged(const Widget& widget, WidgetAspect aspect) {
  log_.add(toUtf8(widget.name()) + "." + describe(widget.state(), aspect));
}

void PanelLog::widgetRefreshed(const Widget& widget) {
  log_.add(toUtf8(widget.name()) + ".refresh");
}

}  // namespace tessara::testing
