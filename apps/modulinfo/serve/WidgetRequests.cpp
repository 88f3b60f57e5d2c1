#include "serve/WidgetRequests.h"

#include <algorithm>
#include <initializer_list>
#include <string>

#include "base/Text.h"
#include "serve/WidgetJson.h"

namespace tessara {

namespace {

/// The widget that the parameter names, which has to be of one of these kinds; `what` tells them.
Widget& widgetOf(const Bridge& bridge, const Parameters& parameters, const char* parameter,
                 std::initializer_list<WidgetKind> kinds, const char* what) {
  const std::string name = parameters.text(parameter);
  Widget& widget = bridge.widget(name);
  if (std::find(kinds.begin(), kinds.end(), widget.kind()) == kinds.end()) {
    throw wrongParameters(name + " is no " + what);
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

void selectLine(Widget& list, const Parameters& parameters) {
  if (parameters.has("index") == parameters.has("text")) {
    throw wrongParameters("a line of " + toUtf8(list.name()) + R"( goes by "index" or by "text")");
  }
  list.select(parameters.has("index") ? parameters.number("index")
                                      : lineOf(list, parameters.text("text")));
}

void selectOption(Widget& option, const Parameters& parameters) {
  if (parameters.has("index") || parameters.has("text")) {
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

OrderedJson pressWidget(Bridge& bridge, const Parameters& parameters) {
  widgetOf(bridge, parameters, "widget", {WidgetKind::Button, WidgetKind::HyperLink}, "button")
      .press();
  return nullptr;
}

OrderedJson selectInWidget(Bridge& bridge, const Parameters& parameters) {
  Widget& widget = widgetOf(bridge, parameters, "widget",
                            {WidgetKind::DropDownList, WidgetKind::Option}, "list and no option");
  if (widget.kind() == WidgetKind::Option) {
    selectOption(widget, parameters);
  } else {
    selectLine(widget, parameters);
  }
  return nullptr;
}

OrderedJson typeIntoWidget(Bridge& bridge, const Parameters& parameters) {
  const std::string name = parameters.text("widget");
  Widget& widget = bridge.widget(name);
  if (!canBeTypedInto(bridge, widget)) throw wrongParameters("nothing can be typed into " + name);
  widget.setText(fromUtf8(parameters.text("text")));
  return nullptr;
}

OrderedJson tellWidget(Bridge& bridge, const Parameters& parameters) {
  return widgetJson(bridge.widget(parameters.text("widget")));
}

OrderedJson tellWidgets(Bridge& bridge, const Parameters& /*parameters*/) {
  OrderedJson states = OrderedJson::object();
  for (const auto& [name, widget] : bridge.widgets()) states[name] = widgetJson(*widget);
  return states;
}

OrderedJson tickTimer(Bridge& bridge, const Parameters& parameters) {
  Widget& timer = widgetOf(bridge, parameters, "timer", {WidgetKind::Timer}, "timer");
  if (!timer.enabled()) return false;
  timer.tick();
  return true;
}

}  // namespace tessara
