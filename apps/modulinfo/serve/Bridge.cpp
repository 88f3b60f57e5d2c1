#include "serve/Bridge.h"

#include "base/Text.h"

namespace tessara {

Widget& Bridge::widget(const std::string& name) const {
  const WidgetOwner* owner = &control.panel();
  const auto point = name.find('.');
  if (point != std::string::npos) {
    const std::string form = name.substr(0, point);
    owner = forms.find(fromUtf8(form));
    if (owner == nullptr) throw wrongParameters("no dialog " + inQuotes(form) + " is open");
  }
  Widget* found = owner->find(fromUtf8(name.substr(point + 1)));
  if (found == nullptr) throw wrongParameters("there is no widget " + inQuotes(name));
  return *found;
}

std::vector<Bridge::NamedWidget> Bridge::widgets() const {
  std::vector<NamedWidget> all;
  for (const Widget* widget : control.panel().widgets()) {
    all.push_back({toUtf8(widget->name()), widget});
  }
  for (const Form* form : forms.all()) {
    for (const Widget* widget : form->widgets()) {
      all.push_back({toUtf8(form->name() + u'.' + widget->name()), widget});
    }
  }
  return all;
}

}  // namespace tessara
