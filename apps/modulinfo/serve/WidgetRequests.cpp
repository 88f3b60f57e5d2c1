#include "serve/WidgetRequests.h"

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "base/Text.h"
#include "serve/WidgetJson.h"

namespace tessara {

namespace {

/// The widget that the parameter names, which has to be of one of these kinds; `what` tells them.
Widget& widgetOf(const Bridge& bridge, const JsonReader& params, const char* parameter,
                 std::initializer_list<WidgetKind> kinds, const char* what) {
  const std::string name = params[parameter].text();
  Widget& widget = bridge.widget(name);
  if (std::find(kinds.begin(), kinds.end(), widget.kind()) == kinds.end()) {
    throw wrongParameters(name + " is not a " + what);
  }
  return widget;
}

std::int32_t lineOf(const Widget& list, const std::string& text) {
  const auto& items = list.state().items;
  const auto found = std::find(items.begin(), items.end(), fromUtf8(text));
  if (found == items.end()) {
    throw RunTimeError(ErrorNumber::InvalidPropertyValue,
                       toUtf8(list.name()) + " has no line " + inQuotes(text));
  }
  return static_cast<std::int32_t>(found - items.begin());
}

void selectLine(Widget& list, const JsonReader& params) {
  using Limits = std::numeric_limits<std::int32_t>;
  const auto index = params.find("index");
  if (index.has_value() == params.has("text")) {
    throw wrongParameters("select a line of " + toUtf8(list.name()) +
                          R"( either by "index" or by "text")");
  }
  list.select(index ? static_cast<std::int32_t>(index->signedNumber(Limits::min(), Limits::max()))
                    : lineOf(list, params["text"].text()));
}

void selectOption(Widget& option, const JsonReader& params) {
  if (params.has("index") || params.has("text")) {
    throw wrongParameters("the option " + toUtf8(option.name()) + " has no lines to select");
  }
  option.select();
}

/// Of the lists only ComboBaudrate has a text that can be typed over.
bool canBeTypedInto(const Bridge& bridge, const Widget& widget) {
  return widget.kind() == WidgetKind::TextBox ||
         &widget == bridge.control.panel().find(u"ComboBaudrate");
}

}  // namespace

JsonText pressWidget(Bridge& bridge, const JsonReader& params) {
  widgetOf(bridge, params, "widget", {WidgetKind::Button, WidgetKind::HyperLink}, "button").press();
  return nullptr;
}

JsonText selectInWidget(Bridge& bridge, const JsonReader& params) {
  Widget& widget = widgetOf(bridge, params, "widget",
                            {WidgetKind::DropDownList, WidgetKind::Option}, "list or an option");
  if (widget.kind() == WidgetKind::Option) {
    selectOption(widget, params);
  } else {
    selectLine(widget, params);
  }
  return nullptr;
}

JsonText typeIntoWidget(Bridge& bridge, const JsonReader& params) {
  const std::string name = params["widget"].text();
  Widget& widget = bridge.widget(name);
  if (!canBeTypedInto(bridge, widget)) throw wrongParameters("nothing can be typed into " + name);
  widget.setText(fromUtf8(params["text"].text()));
  return nullptr;
}

JsonText widgetState(Bridge& bridge, const JsonReader& params) {
  return widgetJson(bridge.widget(params["widget"].text()));
}

JsonText widgetStates(Bridge& bridge, const JsonReader& /*params*/) {
  const auto widgets = bridge.widgets();
  std::vector<JsonText::Member> states;
  for (const auto& [name, widget] : widgets) states.emplace_back(name, widgetJson(*widget));
  return JsonText::object(states);
}

JsonText tickTimer(Bridge& bridge, const JsonReader& params) {
  Widget& timer = widgetOf(bridge, params, "timer", {WidgetKind::Timer}, "timer");
  if (!timer.enabled()) return false;
  timer.tick();
  return true;
}

}  // namespace tessara
