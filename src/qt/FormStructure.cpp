#include "qt/FormStructure.h"

#include <array>
#include <cmath>

#include "qt/TextButtonView.h"

namespace tessara {
namespace {

struct RoleOf {
  std::u16string_view label;
  LabelRole role;
};
constexpr std::array<RoleOf, 10> roles{{{u"LblAppTitel", LabelRole::Title},
                                        {u"LblFrameInformation", LabelRole::Section},
                                        {u"LblProductContactInfo", LabelRole::Section},
                                        {u"LblCompany", LabelRole::StrongValue},
                                        {u"LblPhone", LabelRole::Caption},
                                        {u"LblFax", LabelRole::Caption},
                                        {u"LblEmail", LabelRole::Caption},
                                        {u"LblWeb", LabelRole::Caption},
                                        {u"LblInfo", LabelRole::Text},
                                        {u"Label31", LabelRole::Caption}}};

double widthOf(const QWidget* view) {
  if (view == nullptr) {
    return 0;
  }
  if (const auto* button = dynamic_cast<const TextButtonView*>(view)) {
    return button->neededWidth();
  }
  if (const auto* label = dynamic_cast<const LabelView*>(view)) {
    return label->neededWidth();
  }
  return view->sizeHint().width();
}

}  // namespace

LabelRole roleOf(const Widget& label) {
  const auto* found = std::find_if(roles.begin(), roles.end(),
                                   [&](const RoleOf& row) { return row.label == label.name(); });
  return found == roles.end() ? LabelRole::Value : found->role;
}

FormLayout::Needs textNeeds(const FormView& view) {
  return {[&view](const Widget& widget) { return widthOf(view.viewOf(widget)); },
          [&view](const Widget& widget, double width) {
            const auto* label = dynamic_cast<const LabelView*>(view.viewOf(widget));
            return label == nullptr ? 0.0 : label->neededHeight(width);
          }};
}

}  // namespace tessara
