#include "qt/QtForms.h"

#include <utility>

namespace tessara {

QtForms::~QtForms() {
  const auto views = std::exchange(views_, {});
  for (const auto& [form, view] : views) {
    delete view.data();
  }
}

void QtForms::formShown(Form& form) {
  auto* view = new FormView(form, owner_);
  views_[&form] = view;
  view->show();
}

void QtForms::formHidden(Form& form) {
  // The owner may be deleted, and the view with it.
  const QPointer<FormView> view = views_[&form];
  views_.erase(&form);
  if (view != nullptr) {
    view->release();
  }
}

}  // namespace tessara
